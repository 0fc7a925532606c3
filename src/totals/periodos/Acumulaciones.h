// Adding periods to larger ones by hand, and undoing it.
#pragma once

#include "totals/periodos/Periodos.h"

namespace tarvo::totals {

struct Acumulacion {
  qint64 link = 0;
  Periodo periodo, mayor;
  bool creado = false;    // the larger one was created for it
  bool anterior = false;  // an earlier version's sales were taken out of it
};

class Acumulaciones {
 public:
  explicit Acumulaciones(Periodos& periodos) : p_(periodos) {}

  // As Periodos::AcumularPeriodo and DesacumularPeriodo; nothing where those are false.
  Resultado<std::optional<Acumulacion>> acumular(int tipo, const Columna& c);
  Resultado<std::optional<Acumulacion>> desacumular(int tipo, const Columna& c);
  // Undo what acumular or desacumular did, in one transaction. A larger period created for it is
  // deleted if nothing else is in it. Periods changed since then are skipped; NoExiste if all were.
  Resultado<> deshacerAcumular(const std::vector<Acumulacion>& hechas);
  Resultado<> deshacerDesacumular(const std::vector<Acumulacion>& hechas);

 private:
  // The period, if it is the same one and its mark is `acumulado`.
  Resultado<std::optional<Columna>> todavia(const Acumulacion& a, bool acumulado);
  Resultado<> algunas(int cuantas) const;

  Periodos& p_;
};

}  // namespace tarvo::totals
