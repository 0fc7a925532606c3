// The days of an offer: both days are included, and a missing end is open. It never ends before it
// begins.
#pragma once

#include <expected>
#include <optional>

#include "core/dao/Valor.h"

namespace tarvo::precios {

using Dia = std::optional<Fecha>;

class Vigencia {
 public:
  Vigencia() = default;
  // Nothing when it would end before it begins. Times of day are dropped.
  static std::optional<Vigencia> de(Dia desde, Dia hasta);

  const Dia& desde() const { return desde_; }
  const Dia& hasta() const { return hasta_; }
  bool operator==(const Vigencia&) const = default;

 private:
  Vigencia(Dia desde, Dia hasta) : desde_(desde), hasta_(hasta) {}
  Dia desde_, hasta_;
};

// The last day of an offer, as typed. A day without its year is of the year of `desde`, or of `hoy`
// when that is open or past, and never of a later one without a word: when it would come before,
// that is the fault, and the next such day is suggested. An empty text is an open end.
struct FaltaFin {
  std::optional<Fecha> proximo;  // nothing for what is no date
};
std::expected<Dia, FaltaFin> leerFin(const QString& texto, const Dia& desde, Fecha hoy);

// As stored: Null for an open end.
dao::Valor comoValor(const Dia& dia);
Dia comoDia(const dao::Valor& valor);

}  // namespace tarvo::precios
