// Periods added into another by hand or by a process: which they were (table Sumados, as long as
// the rows of the sum exist), and, in a batch of the Papelera, the rows, so that the sum can be
// undone to the cent.
#pragma once

#include <vector>

#include "totals/periodos/Periodos.h"

namespace tarvo::totals {

class Sumas {
 public:
  explicit Sumas(Periodos& periodos) : db_(periodos.base()), p_(periodos), a_(periodos.ajustes()) {}

  // Adds the rows of the periods, except those of `destino` itself; the larger periods of `destino`
  // and the stock are updated. `dobles`: those whose sales are counted twice. `lote` 0:
  // permanently.
  Resultado<> sumar(qint64 destino, const std::vector<Columna>& cuales,
                    const std::vector<Periodo>& dobles, qint64 lote);
  // Takes the sum of the batch out again, and with `nuevo` the period made for it if nothing else
  // was added to it. NoExiste when it is no longer the same period.
  Resultado<> deshacer(qint64 destino, qint64 lote, bool nuevo = false);
  // Whether a period with these dates was added to `destino`.
  Resultado<bool> tiene(qint64 destino, const Periodo& p);
  // The periods summed or accumulated into this one, by their dates; a replaced version counts as
  // long as the larger period holds it.
  Resultado<std::vector<Periodo>> directos(const Columna& c);
  // What a period holds by what is noted: the periods summed or accumulated into it, those in
  // these, and so on. Each once.
  Resultado<std::vector<Periodo>> contenido(const Columna& c);
  // The periods into which this one was summed, those into which these were, and so on.
  Resultado<std::vector<Columna>> quienesLoTienen(const Columna& c);
  // Those with sales counted twice in `destino`.
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
