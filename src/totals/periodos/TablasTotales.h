// Our own tables beside the domain's: what larger periods and the stock hold of replaced periods
// (Sustituidos, TotSusti), what was exported (Exportes), and deleted periods that can still be
// restored (Papelera...).
#pragma once

#include "core/dao/Pasos.h"

namespace tarvo::totals {

dao::TablasDeSala tablasTotales();
// Creates only these, for programs that use this room alone.
Resultado<> asegurarTablasTotales(dao::Database& db);

}  // namespace tarvo::totals
