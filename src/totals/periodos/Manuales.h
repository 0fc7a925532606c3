// Totals that a person keys in.
#pragma once

#include <vector>

#include "totals/periodos/Periodos.h"

namespace tarvo::totals {

struct EntradaManual {
  int clase = kGranTotal;
  int grupo = 0;
  qint64 codi = 0;
  int hora = 0;
  Contadores c;  // with their sign
};

// Adds the entries to the period, in one transaction; rows that are missing are made. The larger
// periods and the stock follow.
Resultado<> aplicarManuales(dao::Database& db, Periodos& periodos, qint64 link,
                            const std::vector<EntradaManual>& entradas);

}  // namespace tarvo::totals
