// The export step: what earlier runs of the process owe of it first, each under its own mark, then
// the periods selected now.
#include <algorithm>

#include "automation/Ejecutor.h"
#include "automation/TextosAutomation.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

constexpr int kErrorExportar = 14;

// Which of the export steps of its process the present one is, from 1.
int ordenExporte(const Ejecucion& e) {
  const auto hasta = std::min<qint64>(e.paso, e.lineas.size());
  return 1 + static_cast<int>(std::count_if(e.lineas.begin(), e.lineas.begin() + hasta,
                                            [](const QString& s) { return s.startsWith(u"E:"); }));
}

}  // namespace

QString Ejecutor::nombrePeriodos(const std::vector<qint64>& links) const {
  QStringList nombres;
  for (const qint64 link : links) nombres += nombrePeriodo(link);
  return nombres.join(u", "_s);
}

// Those that reach the file leave `propios`: a period that is selected again is not exported twice.
void Ejecutor::exportarPendientes(const std::vector<Pendientes::Exporte>& viejos,
                                  const Exportacion& x, std::vector<qint64>& propios,
                                  QStringList& saldados, Hecho& h) {
  for (const auto& viejo : viejos) {
    const QString periodos = nombrePeriodos(viejo.links);
    const auto r = t_.xporTot.XportRemoto(viejo.links, x.como, x.nombre, viejo.marca);
    if (!r || !*r) {
      h.decir(t_.textos(kTxSiguePendiente, {periodos, r ? QString() : r.error().texto}));
      continue;
    }
    h.decir(t_.textos(kTxPendienteHecho, {periodos}), false);
    saldados += viejo.marca;
    std::erase_if(propios, [&viejo](qint64 link) {
      return std::ranges::find(viejo.links, link) != viejo.links.end();
    });
  }
}

Hecho Ejecutor::exportar(const PasoProceso& p, const Ejecucion& e) {
  Hecho h;
  if (p.verbo() != kTotaliza) {
    h.decir(t_.textos(kTxOrdenNoExiste));
    return h;
  }
  const Fecha ahora = t_.reloj.ahora();
  const Exportacion x{{p.logico(2), p.logico(3)},
                      p.texto(4).isEmpty()
                          ? u"EX"_s + ahora.qdate().toString(QStringLiteral("yyMMdd"))
                          : ExpandirNombre(p.texto(4), ahora, t_.db)};
  const int orden = ordenExporte(e);
  std::vector<qint64> propios = t_.verTot.LosSelec();
  const bool nadaElegido = propios.empty();
  QStringList saldados;
  if (const auto viejos = Pendientes(t_.db).exportes(e.nombre, orden))
    exportarPendientes(*viejos, x, propios, saldados, h);
  else
    h.decir(viejos.error().texto);

  Pendientes::Exporte debido{u"%1.%2"_s.arg(e.numero).arg(e.paso), {}};
  if (nadaElegido || !propios.empty()) {
    const auto r = t_.xporTot.XportRemoto(propios, x.como, x.nombre, debido.marca);
    if (!r || !*r) {
      h.error(kErrorExportar);
      debido.links = propios;
    }
    if (!r) h.decir(r.error().texto);
    if (!debido.links.empty()) h.decir(t_.textos(kTxQuedaPendiente, {nombrePeriodos(propios)}));
  }
  h.anotar = [this, saldados, debido, orden, proceso = e.nombre]() -> Resultado<> {
    Pendientes libro(t_.db);
    for (const QString& marca : saldados) TARVO_INTENTAR(libro.saldarExporte(marca));
    return debido.links.empty() ? Resultado<>() : libro.anotarExporte(proceso, orden, debido);
  };
  return h;
}

}  // namespace tarvo::automation
