// The windows of the totals.
#pragma once

#include "core/ventanas/marco/Ventanas.h"
#include "totals/libros/Sesion.h"
#include "totals/periodos/Periodos.h"
#include "totals/ventanas/Puertas.h"

namespace tarvo::totals {

// Registers them by their doors, see Puertas.h. REQUIRES that the engines outlive all windows.
void registrarVentanasTotales(ventanas::Ventanas& ventanas, Sesion& sesion, Periodos& periodos);

}  // namespace tarvo::totals
