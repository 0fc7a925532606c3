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

// A saved period, and what saving it changed.
struct Guardado {
  qint64 link = 0;
  Periodo ahora;
  std::optional<Periodo> antes = {};  // nothing when it was created
  std::vector<EntradaManual> entradas = {};
  std::vector<Periodo> salio = {};    // larger periods that lost its sales
  std::vector<Periodo> creados = {};  // larger periods created for its new dates
  // Those accumulated in it, a larger period, by number and rows (Periodos::sumasDe): at its new
  // dates it is not theirs any more, and they may be accumulated again.
  std::vector<std::pair<qint64, QString>> sueltos = {};
  bool cambia() const { return antes != ahora || !entradas.empty(); }
};

// Saves a period, new when `link` is 0, with its keyed entries, in one transaction. Duplicado when
// there already is one of that kind and dates. Sales may leave larger periods (see
// Periodos::saldriaDe).
Resultado<Guardado> guardarConManuales(Periodos& periodos, qint64 link, const Periodo& periodo,
                                       const std::vector<EntradaManual>& entradas);
// Undoes it, in one transaction: the entries, the dates with what they moved, and a new period
// unless it has other totals by now (Restriccion). NoExiste when it is no longer the same period,
// Duplicado when another one has its former dates, or one that it held has changed.
Resultado<> deshacerGuardado(Periodos& periodos, const Guardado& guardado);

}  // namespace tarvo::totals
