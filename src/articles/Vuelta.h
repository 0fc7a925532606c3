// Undoing a batch as the steps of a Trabajo.
#pragma once

#include "articles/Lotes.h"
#include "core/tiempo/Trabajo.h"

namespace tarvo::articles {

class Vuelta {
 public:
  // `articulos`: their number; `ventana`: for the history of prices. REQUIRES that `lotes` outlives
  // it.
  Vuelta(Lotes& lotes, qint64 lote, qint64 articulos, QString ventana)
      : lotes_(lotes), lote_(lote), articulos_(articulos), ventana_(std::move(ventana)) {}

  // Errors: those of Lotes::deshacerTramo().
  Resultado<bool> paso(Trabajo::Avance& avance);
  // The rest of it at once, when there is no time for steps.
  Resultado<> hastaElFinal();
  const Lotes::Deshecho& hecho() const { return hecho_; }
  qint64 quedan() const { return articulos_ - hecho_.vistos; }

 private:
  Lotes& lotes_;
  qint64 lote_, articulos_;
  QString ventana_;
  Lotes::Deshecho hecho_;
};

}  // namespace tarvo::articles
