#include "articles/precios/Vigencia.h"

#include <algorithm>

namespace tarvo::precios {

std::optional<Vigencia> Vigencia::de(Dia desde, Dia hasta) {
  if (desde) desde = desde->dia();
  if (hasta) hasta = hasta->dia();
  if (desde && hasta && *hasta < *desde) return std::nullopt;
  return Vigencia(desde, hasta);
}

std::expected<Dia, FaltaFin> leerFin(const QString& texto, const Dia& desde, Fecha hoy) {
  if (texto.trimmed().isEmpty()) return Dia();
  const Fecha primero = std::max(desde.value_or(hoy), hoy);
  const auto proximo = Fecha::leerProxima(texto, primero);
  if (!proximo) return std::unexpected(FaltaFin{});
  const bool sinAno = texto.count(u'/') == 1;
  if (sinAno && proximo->qdate().year() != primero.qdate().year())
    return std::unexpected(FaltaFin{proximo->dia()});
  return Dia(proximo->dia());
}

dao::Valor comoValor(const Dia& dia) {
  return dia ? dao::Valor(*dia) : dao::Valor();
}

Dia comoDia(const dao::Valor& valor) {
  return valor.nulo() ? Dia() : Dia(valor.fecha());
}

}  // namespace tarvo::precios
