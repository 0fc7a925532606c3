// The windows of keyboards, for the registry.
#pragma once

#include "articles/Catalogo.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::devices {

// REQUIRES that the catalogue outlives the windows.
void registrarVentanasTeclados(ventanas::Ventanas& ventanas, articles::Catalogo& catalogo);

}  // namespace tarvo::devices
