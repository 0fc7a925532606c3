// The windows of the totals, by name.
#pragma once

#include "core/ventanas/marco/Ventanas.h"
#include "totals/libros/Sesion.h"
#include "totals/periodos/Periodos.h"

namespace tarvo::totals {

// CerrSes, FormDetalles, VerTot, EditIntv, ConfirSum, NoStkBle, VerCols, V_ColOpH, VerFils,
// XporTot, ImpTot and ImpUnaFila. What each takes stands in its header. REQUIRES that the engines
// outlive all windows.
void registrarVentanasTotales(ventanas::Ventanas& ventanas, Sesion& sesion, Periodos& periodos);

}  // namespace tarvo::totals
