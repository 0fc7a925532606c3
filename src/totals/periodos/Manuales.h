// Totals keyed in by a person.
#pragma once

#include <vector>

#include "totals/periodos/Periodos.h"

namespace tarvo::totals {

struct EntradaManual {
  TipoTotal clase = TipoTotal::GranTotal;
  int grupo = 0;
  qint64 codi = 0;
  int hora = 0;
  Contadores c;  // with their sign
  bool operator==(const EntradaManual&) const = default;
};

// Adds the entries to the period, in one transaction; missing rows are created. The larger periods
// and the stock are updated.
Resultado<> aplicarManuales(Periodos& periodos, qint64 link,
                            const std::vector<EntradaManual>& entradas);

// Saves a period, new when `link` is 0, with its keyed entries, in one transaction; returns its
// LINK. Duplicado when there already is one of that kind and dates. Sales may leave larger periods
// (see Periodos::saldriaDe).
Resultado<qint64> guardarConManuales(Periodos& periodos, qint64 link, const Periodo& periodo,
                                     const std::vector<EntradaManual>& entradas);

}  // namespace tarvo::totals
