// Deleted periods can be restored for a while: they are kept in separate tables, by batch, with
// their rows, marks and origins, and with their record of replaced and of summed periods. The rows
// of a sum are kept there as well (Sumas). Meanwhile their number is not given to another period,
// and what is owed of them waits.
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
  // Moves a period and its rows into the batch, in one transaction; false when there is no such
  // period.
  Resultado<bool> tirar(qint64 lote, qint64 link);
  // Moves only its rows; the period stays, with its marks.
  Resultado<bool> vaciar(qint64 lote, qint64 link);
  // Restores a whole batch, with its periods' numbers and marks. Returns how many. Duplicado, with
  // nothing changed, when the place of one is taken, or a period accumulated in one has changed.
  Resultado<int> restaurar(qint64 lote);
  // Permanently.
  Resultado<> vaciarla();

 private:
  Resultado<bool> mover(qint64 lote, qint64 link, bool soloFilas);
  Resultado<> guardar(qint64 lote, const Columna& c, bool soloFilas);
  Resultado<> guardarSustituidos(qint64 lote, const Columna& c);
  Resultado<> guardarAcumulados(qint64 lote, const Columna& c);
  Resultado<> comprobarSitio(const Columna& c, bool soloFilas);
  Resultado<> reponer(qint64 lote, const Columna& c, bool soloFilas);
  Resultado<> reponerSustituidos(qint64 lote, const Columna& c);
  Resultado<> reponerAcumulados(qint64 lote, const Columna& c);
  Resultado<> olvidar(qint64 lote);

  dao::Database& db_;
  Periodos& p_;
  const Ajustes& a_;
};

}  // namespace tarvo::totals
