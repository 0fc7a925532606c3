// Deleted periods can be brought back for a while: they lie in tables of their own, by batch, with
// their rows, marks and origins, and with what was remembered of replaced periods on their account.
// The rows of a sum lie there too (Sumas). While they lie there nobody else is given their number.
#pragma once

#include <optional>

#include "totals/periodos/Periodos.h"

namespace tarvo::totals {

class Papelera {
 public:
  explicit Papelera(Periodos& periodos)
      : db_(periodos.base()), p_(periodos), a_(periodos.ajustes()) {}

  // The number for a new batch, above 0.
  Resultado<qint64> nuevoLote();
  // Moves a period and its rows into the batch. One transaction; false when there is no such
  // period.
  Resultado<bool> tirar(qint64 lote, qint64 link);
  // Moves its rows alone; the period stays, with its marks.
  Resultado<bool> vaciar(qint64 lote, qint64 link);
  // Puts a whole batch back, with the numbers and marks that its periods had. How many they are.
  // Duplicado, and nothing changes, when the place of one is taken.
  Resultado<int> restaurar(qint64 lote);
  // For good.
  Resultado<> vaciarla();

 private:
  Resultado<bool> mover(qint64 lote, qint64 link, bool soloFilas);
  Resultado<> guardar(qint64 lote, const Columna& c, bool soloFilas);
  Resultado<> guardarSustituidos(qint64 lote, const Columna& c);
  Resultado<> comprobarSitio(const Columna& c, bool soloFilas);
  Resultado<> reponer(qint64 lote, const Columna& c, bool soloFilas);
  Resultado<> reponerSustituidos(qint64 lote, const Columna& c);
  Resultado<> olvidar(qint64 lote);

  dao::Database& db_;
  Periodos& p_;
  const Ajustes& a_;
};

}  // namespace tarvo::totals
