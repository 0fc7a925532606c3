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

// The first of those accumulated to `tipo` that is where `c` would be, with sales in common.
const Columna* relacionado(const Columna& c, const std::vector<Columna>& dentro, int tipo) {
  const Periodo mayor = LimitesPeriodo(tipo, c.periodo.desde, c.periodo.desde);
  for (const Columna& otro : dentro) {
    const int k = otro.periodo.tipo;
    const bool seMira = (k >= kDiario && k < tipo) || k == kOtros;
    if (seMira && otro.periodo.desde >= mayor.desde && otro.periodo.desde < mayor.hasta &&
        otro.periodo.solapa(c.periodo))
      return &otro;
  }
  return nullptr;
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

Resultado<std::vector<Columna>> VerTot::acumulados(int tipo) {
  TARVO_TOMAR(auto todos, p_.lista());
  std::erase_if(todos, [tipo](const Columna& c) { return !c.acumulado(tipo); });
  return todos;
}

Resultado<int> VerTot::ChequeoAcumulado(const Columna& c, int tipo) {
  if (c.acumulado(tipo)) return 2;
  TARVO_TOMAR(const auto dentro, acumulados(tipo));
  return relacionado(c, dentro, tipo) ? 1 : 0;
}

Resultado<VerTot::Prevision> VerTot::preverAcumular(const std::vector<qint64>& links, int tipo) {
  Prevision p;
  TARVO_TOMAR(auto dentro, acumulados(tipo));
  for (const qint64 link : links) {
    TARVO_TOMAR(const auto c, p_.columna(link));
    if (!c || !Periodos::mayorDe(tipo, c->periodo)) continue;
    if (c->acumulado(tipo)) {
      p.ya.push_back(c->periodo);
      continue;
    }
    if (const Columna* otro = relacionado(*c, dentro, tipo))
      p.relacionados.push_back({c->periodo, otro->periodo});
    dentro.push_back(*c);
  }
  return p;
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
    TARVO_TOMAR(const auto hecho, p_.DescontarPeriodo(c, deshacer));
    return antes && hecho != Descuento::NoProcede;
  });
}

Resultado<VerTot::Creado> VerTot::CrearIntvalo(const Periodo& p, const QString& descr) {
  TARVO_TOMAR(const auto hay, p_.BuscarPeriodo(p.tipo, p.desde, p.hasta));
  if (hay) return Creado{hay->LINK, true};
  TARVO_TOMAR(const auto link, p_.CrearPeriodo(p.tipo, p.desde, p.hasta, true, descr));
  return Creado{link, false};
}

// With a period would go what is owed of it, and nobody would know.
Resultado<VerTot::PorBorrar> VerTot::porBorrar(int tipo, Fecha desde, Fecha hasta) {
  PorBorrar b;
  TARVO_TOMAR(const auto links, entreFechas(tipo, desde, hasta));
  for (const qint64 link : links) {
    TARVO_TOMAR(const auto debidos, p_.debidosDe(link));
    if (debidos.isEmpty()) b.links.push_back(link);
    b.debidos += debidos;
  }
  return b;
}

Resultado<bool> VerTot::BorrarIntvalo(int tipo, Fecha desde, Fecha hasta) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(const auto b, porBorrar(tipo, desde, hasta));
  for (const qint64 link : b.links) TARVO_INTENTAR(p_.BorrarPeriodo(link));
  TARVO_INTENTAR(t.confirmar());
  for (const qint64 link : b.links) std::erase(seleccion_, link);
  if (!b.debidos.isEmpty())
    return fallo(Fallo::Restriccion, p_.textos()(kTxNoSeBorraDebido, {b.debidos.join(u"; ")}));
  return !b.links.empty();
}

Resultado<QString> VerTot::gruposSinCero(int tipo, Fecha desde, Fecha hasta) {
  TARVO_TOMAR(const auto b, porBorrar(tipo, desde, hasta));
  return p_.gruposSinCero(b.links);
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
