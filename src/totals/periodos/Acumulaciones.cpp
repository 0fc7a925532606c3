#include "totals/periodos/Acumulaciones.h"

#include <ranges>

#include "totals/TextosTotals.h"

namespace tarvo::totals {

Resultado<std::optional<Acumulacion>> Acumulaciones::acumular(int tipo, const Columna& c) {
  const auto mayor = Periodos::mayorDe(tipo, c.periodo);
  if (!mayor) return std::nullopt;
  TARVO_TOMAR(const auto hay, p_.BuscarPeriodo(tipo, mayor->desde, mayor->hasta));
  TARVO_TOMAR(const auto anterior, p_.tieneAnterior(tipo, c));
  TARVO_TOMAR(const auto hecho, p_.AcumularPeriodo(tipo, c));
  if (!hecho) return std::nullopt;
  return Acumulacion{c.LINK, c.periodo, *mayor, !hay, anterior};
}

Resultado<std::optional<Acumulacion>> Acumulaciones::desacumular(int tipo, const Columna& c) {
  const auto mayor = Periodos::mayorDe(tipo, c.periodo);
  TARVO_TOMAR(const auto hecho, p_.DesacumularPeriodo(tipo, c));
  if (!hecho || !mayor) return std::nullopt;
  return Acumulacion{c.LINK, c.periodo, *mayor};
}

Resultado<std::optional<Columna>> Acumulaciones::todavia(const Acumulacion& a, bool acumulado) {
  TARVO_TOMAR(const auto c, p_.columna(a.link));
  if (!c || c->periodo != a.periodo || c->acumulado(a.mayor.tipo) != acumulado) return std::nullopt;
  return c;
}

Resultado<> Acumulaciones::algunas(int cuantas) const {
  if (cuantas > 0) return {};
  return fallo(Fallo::NoExiste, p_.textos()(kTxYaNoSonLosMismos));
}

Resultado<> Acumulaciones::deshacerAcumular(const std::vector<Acumulacion>& hechas) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(p_.base()));
  int cuantas = 0;
  for (const Acumulacion& a : hechas | std::views::reverse) {
    const int tipo = a.mayor.tipo;
    TARVO_TOMAR(const auto c, todavia(a, true));
    if (!c) continue;
    TARVO_TOMAR(const auto fuera, p_.DesacumularPeriodo(tipo, *c));
    cuantas += fuera ? 1 : 0;
    if (!a.creado) continue;
    TARVO_TOMAR(const auto mayor, p_.BuscarPeriodo(tipo, a.mayor.desde, a.mayor.hasta));
    if (!mayor) continue;
    TARVO_TOMAR(const auto vacio, p_.sinVentas(mayor->LINK));
    if (vacio) TARVO_INTENTAR(p_.BorrarPeriodo(mayor->LINK));
  }
  TARVO_INTENTAR(algunas(cuantas));
  return t.confirmar();
}

Resultado<> Acumulaciones::deshacerDesacumular(const std::vector<Acumulacion>& hechas) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(p_.base()));
  int cuantas = 0;
  for (const Acumulacion& a : hechas) {
    TARVO_TOMAR(const auto c, todavia(a, false));
    TARVO_TOMAR(const auto mayor, p_.BuscarPeriodo(a.mayor.tipo, a.mayor.desde, a.mayor.hasta));
    if (!c || !mayor) continue;
    TARVO_TOMAR(const auto dentro, p_.AcumularPeriodo(a.mayor.tipo, *c));
    cuantas += dentro ? 1 : 0;
  }
  TARVO_INTENTAR(algunas(cuantas));
  return t.confirmar();
}

}  // namespace tarvo::totals
