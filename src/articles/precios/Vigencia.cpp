#include "articles/precios/Vigencia.h"

namespace tarvo::precios {

std::optional<Vigencia> Vigencia::de(Dia desde, Dia hasta) {
  if (desde) desde = desde->dia();
  if (hasta) hasta = hasta->dia();
  if (desde && hasta && *hasta < *desde) return std::nullopt;
  return Vigencia(desde, hasta);
}

dao::Valor comoValor(const Dia& dia) {
  return dia ? dao::Valor(*dia) : dao::Valor();
}

Dia comoDia(const dao::Valor& valor) {
  return valor.nulo() ? Dia() : Dia(valor.fecha());
}

}  // namespace tarvo::precios
