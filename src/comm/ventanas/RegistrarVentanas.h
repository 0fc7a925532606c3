// The windows of communications, by their doors: see Puertas.h.
#pragma once

#include "comm/ventanas/Puertas.h"
#include "comm/ventanas/Servicios.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::comm {

// REQUIRES that all objects referred to by `servicios` outlive all windows.
void registrarVentanasComm(ventanas::Ventanas& ventanas, const Servicios& servicios);

}  // namespace tarvo::comm
