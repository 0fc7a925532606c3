#include "totals/periodos/VerTot.h"

#include <algorithm>
#include <utility>

#include "totals/TextosTotals.h"

namespace tarvo::totals {

namespace {

// The last date of a selection is included whole, except where dates are taken as they are.
Fecha hastaElFinal(int tipo, Fecha hasta) {
  return tipo == kOtros ? hasta : hasta.dia() + Fecha::kUltimoSegundo;
}

}  // namespace

VerTot::VerTot(Periodos& periodos) : p_(periodos), db_(periodos.base()), a_(periodos.ajustes()) {}

// One operation over the selection: every period once, all or (on an Error) none. The selection is
// cleared in any case. Missing periods make the answer false.
Resultado<bool> VerTot::conSeleccion(
    const std::function<Resultado<bool>(const Columna&, bool antes)>& paso) {
  const std::vector<qint64> links = std::exchange(seleccion_, {});
  if (links.empty()) return false;
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  bool ok = true;
  for (const qint64 link : links) {
    TARVO_TOMAR(const auto c, p_.columna(link));
    const Resultado<bool> hecho = c ? paso(*c, ok) : Resultado<bool>(false);
    if (!hecho) return hecho;
    ok = *hecho;
  }
  TARVO_INTENTAR(t.confirmar());
  return ok;
}

Resultado<int> VerTot::ChequeoAcumulado(const Columna& c, int tipo) {
  if (c.acumulado(tipo)) return 2;
  const Periodo mayor = LimitesPeriodo(tipo, c.periodo.desde, c.periodo.desde);
  TARVO_TOMAR(const auto todos, p_.lista());
  for (const Columna& otro : todos) {
    const int k = otro.periodo.tipo;
    const bool seMira = (k >= kDiario && k < tipo) || k == kOtros;
    if (seMira && otro.periodo.desde >= mayor.desde && otro.periodo.desde < mayor.hasta &&
        otro.acumulado(tipo) && otro.periodo.solapa(c.periodo))
      return otro.LINK == c.LINK ? 2 : 1;
  }
  return 0;
}

Resultado<bool> VerTot::AcumularEn(int tipo) {
  return conSeleccion([&](const Columna& c, bool antes) -> Resultado<bool> {
    TARVO_TOMAR(const auto chequeo, ChequeoAcumulado(c, tipo));
    if (chequeo == 2) return antes;
    const auto hecho = p_.AcumularPeriodo(tipo, c);
    if (!hecho) return hecho;
    return antes && *hecho;
  });
}

Resultado<bool> VerTot::DesacumularDe(int tipo) {
  return conSeleccion([&](const Columna& c, bool) { return p_.DesacumularPeriodo(tipo, c); });
}

Resultado<bool> VerTot::AcumularIntv(int tipo, int signo) {
  if (signo == 0) return true;
  return signo > 0 ? AcumularEn(tipo) : DesacumularDe(tipo);
}

Resultado<bool> VerTot::StockIntv(bool deshacer) {
  return conSeleccion([&](const Columna& c, bool antes) -> Resultado<bool> {
    if (!c.stkABLE) return false;
    if (!deshacer && c.stkADO >= 1) return antes;  // its sales have already left the stock
    const auto hecho = p_.DescontarPeriodo(c, deshacer ? -1 : 1);
    if (!hecho) return hecho;
    return antes && *hecho;
  });
}

Resultado<VerTot::Creado> VerTot::CrearIntvalo(const Periodo& p, const QString& descr) {
  TARVO_TOMAR(const auto hay, p_.BuscarPeriodo(p.tipo, p.desde, p.hasta));
  if (hay) return Creado{hay->LINK, true};
  TARVO_TOMAR(const auto link, p_.CrearPeriodo(p.tipo, p.desde, p.hasta, true, descr));
  return Creado{link, false};
}

Resultado<bool> VerTot::BorrarIntvalo(int tipo, Fecha desde, Fecha hasta,
                                      std::span<const qint64> conservar) {
  TARVO_TOMAR(auto links, entreFechas(tipo, desde, hasta));
  QStringList quedan;
  for (const qint64 link : conservar) {
    if (std::erase(links, link) == 0) continue;
    TARVO_TOMAR(const auto c, p_.columna(link));
    if (c) quedan << TextoPeriodo(c->periodo);
  }
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  for (const qint64 link : links) TARVO_INTENTAR(p_.BorrarPeriodo(link));
  TARVO_INTENTAR(t.confirmar());
  for (const qint64 link : links) std::erase(seleccion_, link);
  if (!quedan.isEmpty())
    return fallo(Fallo::Restriccion, p_.textos()(kTxNoSeBorraDebido, {quedan.join(u", ")}));
  return !links.empty();
}

Resultado<std::vector<qint64>> VerTot::entreFechas(int tipo, Fecha desde, Fecha hasta) {
  TARVO_TOMAR(const auto filas, p_.lista(tipo));
  const Fecha fin = hastaElFinal(tipo, hasta);
  std::vector<qint64> v;
  for (const Columna& c : filas)
    if (c.periodo.tipo == tipo && c.periodo.desde >= desde && c.periodo.hasta <= fin)
      v.push_back(c.LINK);
  return v;
}

bool VerTot::ClrSelec() {
  seleccion_.clear();
  return true;
}

void VerTot::anadir(qint64 link) {
  if (std::find(seleccion_.begin(), seleccion_.end(), link) == seleccion_.end())
    seleccion_.push_back(link);
}

Resultado<bool> VerTot::Seleccionar(int tipo, Fecha desde, Fecha hasta) {
  TARVO_TOMAR(const auto links, entreFechas(tipo, desde, hasta));
  for (const qint64 link : links) anadir(link);
  return !links.empty();
}

Resultado<bool> VerTot::SelecHnd(qint64 link) {
  TARVO_TOMAR(const auto c, p_.columna(link));
  if (c) anadir(link);
  return c.has_value();
}

void VerTot::ponerSeleccion(const std::vector<qint64>& links) {
  seleccion_.clear();
  for (const qint64 link : links) anadir(link);
}

}  // namespace tarvo::totals
