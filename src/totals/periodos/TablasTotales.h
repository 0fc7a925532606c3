// Tables of our own beside the domain's: what larger periods and the stock hold of replaced periods
// (Sustituidos, TotSusti), what was exported (Exportes), and deleted periods that can still be
// brought back (Papelera...).
#pragma once

#include "core/dao/Database.h"

namespace tarvo::totals {

// Makes them where they are missing. To be called at the start, before Periodos and XporTot work.
Resultado<> asegurarTablasTotales(dao::Database& db);

}  // namespace tarvo::totals
