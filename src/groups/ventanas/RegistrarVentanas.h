// The windows of groups, by their doors: see Puertas.h.
#pragma once

#include "articles/Catalogo.h"
#include "comm/motor/gestcomm.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::groups {

// REQUIRES that the engines outlive all windows.
void registrarVentanasGrupos(ventanas::Ventanas& ventanas, articles::Catalogo& catalogo,
                             motor::gestcomm& motor);

}  // namespace tarvo::groups
