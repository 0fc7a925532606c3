// The export step: first what earlier runs of the process owe for it, each under its own mark, then
// the periods selected now.
#include <algorithm>

#include "automation/Ejecutor.h"
#include "automation/TextosAutomation.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

constexpr int kErrorExportar = 14;

// The position of the current step among the export steps of its process, from 1.
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

// Periods tried here leave `propios`: one that is selected again is neither exported nor owed
// twice.
void Ejecutor::exportarPendientes(const std::vector<Pendientes::Exporte>& viejos,
                                  const Exportacion& x, std::vector<qint64>& propios,
                                  std::vector<qint64>& saldados, Hecho& h) {
  for (const auto& viejo : viejos) {
    const QString periodos = nombrePeriodos(viejo.links);
    const auto r = t_.xporTot.XportRemoto(viejo.links, x.como, x.nombre, viejo.marca);
    const auto elegidos = std::erase_if(propios, [&viejo](qint64 link) {
      return std::ranges::find(viejo.links, link) != viejo.links.end();
    });
    if (r && *r) {
      h.decir(t_.textos(kTxPendienteHecho, {periodos}), false);
      saldados.insert(saldados.end(), viejo.links.begin(), viejo.links.end());
      continue;
    }
    if (elegidos > 0) h.error(kErrorExportar);
    h.decir(t_.textos(kTxSiguePendiente, {periodos, r ? QString() : r.error().texto}));
  }
}

// Each period has its own mark: one that can't be exported holds back no other.
void Ejecutor::exportarPropios(const std::vector<qint64>& propios, const Exportacion& x,
                               const QString& marca, std::vector<qint64>& saldados,
                               std::vector<Pendientes::Exporte>& debidos, Hecho& h) {
  for (const qint64 link : propios) {
    const Pendientes::Exporte uno{u"%1.%2"_s.arg(marca).arg(link), {link}};
    const auto r = t_.xporTot.XportRemoto(uno.links, x.como, x.nombre, uno.marca);
    if (r && *r) {
      saldados.push_back(link);
      continue;
    }
    h.error(kErrorExportar);
    debidos.push_back(uno);
    if (!r) h.decir(r.error().texto);
    h.decir(t_.textos(kTxQuedaPendiente, {nombrePeriodo(link)}));
  }
}

Hecho Ejecutor::exportar(const PasoExportar& p, const Ejecucion& e) {
  Hecho h;
  if (!p.totaliza) {
    h.decir(t_.textos(kTxOrdenNoExiste));
    return h;
  }
  const Fecha ahora = t_.reloj.ahora();
  const Exportacion x{{p.corto, p.borrar},
                      p.fichero.isEmpty()
                          ? u"EX"_s + ahora.qdate().toString(QStringLiteral("yyMMdd"))
                          : ExpandirNombre(p.fichero, ahora, t_.db)};
  const Pendientes::Destino destino{e.nombre, ordenExporte(e), t_.xporTot.rutaDestino(x.nombre)};
  const auto viejos = Pendientes(t_.db).exportes(destino);
  if (!viejos) return deFallo(viejos.error(), kErrorExportar);

  std::vector<qint64> propios = t_.verTot.LosSelec(), saldados;
  std::vector<Pendientes::Exporte> debidos;
  if (propios.empty()) sinElegidos(kErrorExportar, e, h);
  exportarPendientes(*viejos, x, propios, saldados, h);
  exportarPropios(propios, x, u"%1.%2"_s.arg(e.numero).arg(e.paso), saldados, debidos, h);
  h.anotar = [this, saldados, debidos, destino]() -> Resultado<> {
    Pendientes libro(t_.db);
    for (const qint64 link : saldados) TARVO_INTENTAR(libro.saldarExporte(destino, link));
    for (const auto& debido : debidos) TARVO_INTENTAR(libro.anotarExporte(destino, debido));
    return libro.limpiar();
  };
  return h;
}

}  // namespace tarvo::automation
