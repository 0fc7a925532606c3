// The export step: first what is owed to its file, each period under its own mark, then those
// selected now.
#include <algorithm>

#include "automation/Ejecutor.h"
#include "automation/TextosAutomation.h"
#include "totals/TextosTotals.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

constexpr int kErrorExportar = 14;

}  // namespace

// A period that another file still waits for stays: with it the debt would go, and nobody would
// know.
Resultado<bool> Ejecutor::esperaOtro(qint64 link, const QString& ruta) {
  TARVO_TOMAR(const auto debidos, Pendientes(t_.db).todos());
  return std::ranges::any_of(debidos, [&](const Pendientes::Debido& d) {
    return d.que == Pendientes::Debido::Que::Exportar && d.link == link && d.fichero != ruta;
  });
}

Resultado<bool> Ejecutor::exportarUno(const Pendientes::Exporte& e, const Exportacion& x,
                                      Hecho& h) {
  totals::OpcionesExport como = x.como;
  if (como.borrar) {
    TARVO_TOMAR(const auto espera, esperaOtro(e.link, e.ruta));
    como.borrar = !espera;
    if (espera) h.decir(t_.textos(totals::kTxNoSeBorraDebido, {nombrePeriodo(e.link)}));
  }
  return t_.xporTot.XportRemoto({e.link}, como,
                                e.ruta.isEmpty() ? QString() : t_.xporTot.fichero(e.ruta), e.marca);
}

// Periods tried here for the step's own file leave `propios`: one that is selected again is neither
// exported nor owed twice.
void Ejecutor::exportarPendientes(const std::vector<Pendientes::Exporte>& viejos,
                                  const Exportacion& x, std::vector<qint64>& propios,
                                  std::vector<Pendientes::Exporte>& saldados, Hecho& h) {
  for (const auto& viejo : viejos) {
    const bool suyo = x.destino.ruta == viejo.ruta || x.destino.absoluta == viejo.ruta;
    const bool elegido = std::ranges::find(propios, viejo.link) != propios.end();
    const QString periodo = nombrePeriodo(viejo.link);
    Exportacion como = x;
    if (elegido && !suyo) como.como.borrar = false;  // its own file is still to get it
    const auto r = exportarUno(viejo, como, h);
    if (suyo) std::erase(propios, viejo.link);
    if (r && *r) {
      h.decir(t_.textos(kTxPendienteHecho, {periodo}), false);
      saldados.push_back(viejo);
      continue;
    }
    if (elegido && suyo) h.error(kErrorExportar);
    h.decir(t_.textos(kTxSiguePendiente, {periodo, r ? QString() : r.error().texto}));
  }
}

// Each period has its own mark: one that can't be exported holds back no other.
void Ejecutor::exportarPropios(const std::vector<qint64>& propios, const Exportacion& x,
                               const QString& marca, std::vector<Pendientes::Exporte>& saldados,
                               std::vector<Pendientes::Exporte>& debidos, Hecho& h) {
  for (const qint64 link : propios) {
    const Pendientes::Exporte uno{u"%1.%2"_s.arg(marca).arg(link), x.destino.ruta, link};
    const auto r = exportarUno(uno, x, h);
    if (r && *r) {
      saldados.push_back(uno);
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
  const QString nombre = p.fichero.isEmpty()
                             ? u"EX"_s + ahora.qdate().toString(QStringLiteral("yyMMdd"))
                             : ExpandirNombre(p.fichero, ahora, t_.db);
  const QString ruta = t_.xporTot.rutaDestino(nombre);
  const Exportacion x{{p.corto, p.borrar}, {e.nombre, p.fichero, t_.xporTot.anotada(ruta), ruta}};
  const auto viejos = Pendientes(t_.db).exportes(x.destino);
  if (!viejos) return deFallo(viejos.error(), kErrorExportar);

  std::vector<qint64> propios = t_.verTot.LosSelec();
  std::vector<Pendientes::Exporte> saldados, debidos;
  if (propios.empty()) sinElegidos(kErrorExportar, e, h);
  exportarPendientes(*viejos, x, propios, saldados, h);
  exportarPropios(propios, x, u"%1.%2"_s.arg(e.numero).arg(e.paso), saldados, debidos, h);
  h.anotar = [this, saldados, debidos, destino = x.destino]() -> Resultado<> {
    Pendientes libro(t_.db);
    for (const auto& saldado : saldados) TARVO_INTENTAR(libro.saldarExporte(saldado));
    for (const auto& debido : debidos)
      TARVO_INTENTAR(libro.anotarExporte(destino, debido.link, debido.marca));
    return libro.limpiar();
  };
  return h;
}

}  // namespace tarvo::automation
