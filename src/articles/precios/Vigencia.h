// The days of an offer: both days are included, and a missing end is open. It never ends before it
// begins.
#pragma once

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

// As stored: Null for an open end.
dao::Valor comoValor(const Dia& dia);
Dia comoDia(const dao::Valor& valor);

}  // namespace tarvo::precios
