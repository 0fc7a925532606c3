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
  bool operator==(const EntradaManual&) const = default;
};

// Adds the entries to the period, in one transaction; rows that are missing are made. The larger
// periods and the stock follow.
Resultado<> aplicarManuales(Periodos& periodos, qint64 link,
                            const std::vector<EntradaManual>& entradas);

// A period, new when `link` is 0, with what was keyed in for it, in one transaction; its LINK.
// Duplicado when there is one of that kind and those dates already. Sales may leave larger periods
// (see Periodos::saldriaDe).
Resultado<qint64> guardarConManuales(Periodos& periodos, qint64 link, const Periodo& periodo,
                                     const std::vector<EntradaManual>& entradas);

}  // namespace tarvo::totals
