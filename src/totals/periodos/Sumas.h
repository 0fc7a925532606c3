// Periods added into another by hand or by a process: which they were (table Sumados, for as long
// as the rows of the sum are there), and, in a batch of the Papelera, the rows, so that the sum can
// be taken back to the cent.
#pragma once

#include <vector>

#include "totals/periodos/Periodos.h"

namespace tarvo::totals {

class Sumas {
 public:
  explicit Sumas(Periodos& periodos) : db_(periodos.base()), p_(periodos), a_(periodos.ajustes()) {}

  // Adds the rows of the periods, but for those of `destino` itself; the larger periods of
  // `destino` and the stock follow. `solapan`: sales are counted twice. `lote` 0: for good.
  Resultado<> sumar(qint64 destino, const std::vector<Columna>& cuales, bool solapan, qint64 lote);
  // Takes the sum of the batch out again, and with `nuevo` the period that was made for it where
  // nothing else has come into it. NoExiste when the period is another by now.
  Resultado<> deshacer(qint64 destino, qint64 lote, bool nuevo = false);
  // Whether a period of these dates was added to `destino`.
  Resultado<bool> tiene(qint64 destino, const Periodo& p);
  // Those of which some sales are counted twice in `destino`.
  Resultado<std::vector<Periodo>> repetidos(qint64 destino);

 private:
  Resultado<> guardar(qint64 origen, qint64 lote);
  Resultado<bool> vacio(qint64 link);
  Resultado<> quitarFilas(qint64 destino, qint64 lote);

  dao::Database& db_;
  Periodos& p_;
  const Ajustes& a_;
};

}  // namespace tarvo::totals
