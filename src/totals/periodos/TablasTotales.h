// Tables of our own beside the domain's: what larger periods and the stock hold of replaced periods
// (Sustituidos, TotSusti), what was exported (Exportes), and deleted periods that can still be
// brought back (Papelera...).
#pragma once

#include "core/dao/Pasos.h"

namespace tarvo::totals {

dao::TablasDeSala tablasTotales();
// Brings them alone, for who works with this room alone.
Resultado<> asegurarTablasTotales(dao::Database& db);

}  // namespace tarvo::totals
