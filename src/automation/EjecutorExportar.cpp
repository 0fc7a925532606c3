// The export step: first what is owed to its file, each period under its own mark, then those
// selected now.
#include <algorithm>
#include <utility>

#include "automation/Ejecutor.h"
#include "automation/TextosAutomation.h"
#include "totals/TextosTotals.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

constexpr int kErrorExportar = 14;

}  // namespace

Resultado<bool> Ejecutor::exportarUno(const Pendientes::Exporte& e, bool corto) {
  return t_.xporTot.XportRemoto({e.link}, {corto, e.borrar.value_or(false)},
                                e.ruta.isEmpty() ? QString() : t_.xporTot.fichero(e.ruta), e.marca);
}

// Periods tried here for the step's own file leave `propios`: one that is selected again is neither
// exported nor owed twice. One whose own file is still to get it isn't deleted yet. A reason that
// was told before isn't told again, the debt is.
void Ejecutor::exportarPendientes(const std::vector<Pendientes::Exporte>& viejos,
                                  const Exportacion& x, Exportados& ya, Hecho& h) {
  for (const auto& viejo : viejos) {
    const bool suyo = x.destino.ruta == viejo.ruta || x.destino.absoluta == viejo.ruta;
    const auto propio = std::ranges::find(ya.propios, viejo.link, &Pendientes::Exporte::link);
    const bool elegido = propio != ya.propios.end();
    Pendientes::Exporte este = viejo;
    este.borrar = viejo.borrar.value_or(x.como.borrar) || (elegido && *propio->borrar);
    if (elegido && !suyo) propio->borrar = std::exchange(este.borrar, false);
    if (elegido && suyo) ya.propios.erase(propio);
    const auto r = exportarUno(este, x.como.corto);
    const QString periodo = nombrePeriodo(viejo.link);
    if (r && *r) {
      h.decir(t_.textos(kTxPendienteHecho, {periodo}), false);
      ya.saldados.push_back(este);
      continue;
    }
    if (elegido && suyo) {
      h.error(kErrorExportar);
      ya.debidos.push_back(este);
    }
    este.motivo = r ? QString() : r.error().texto;
    ya.siguen.push_back(este);
    h.decir(!este.motivo.isEmpty() && este.motivo == viejo.motivo
                ? t_.textos(kTxSiguePorLoMismo, {NombreFichero(viejo.ruta), periodo})
                : t_.textos(kTxSiguePendiente, {periodo, este.motivo}));
  }
}

// In the file, and waiting for its deletion, since an earlier export.
Resultado<bool> Ejecutor::yaEntregado(const Pendientes::Exporte& e) {
  if (!e.borrar.value_or(false)) return false;
  TARVO_TOMAR(const bool deEste, t_.xporTot.terminado(e.marca));
  if (deEste) return false;
  return t_.xporTot.entregados().tiene(e.ruta, e.link);
}

// Each period has its own mark: one that can't be exported holds back no other.
void Ejecutor::exportarPropios(const Exportacion& x, Exportados& ya, Hecho& h) {
  for (auto& uno : ya.propios) {
    const auto antes = yaEntregado(uno);
    if (antes && *antes) {
      h.decir(t_.textos(kTxYaEntregado, {NombreFichero(uno.ruta), nombrePeriodo(uno.link)}));
      continue;
    }
    const auto otro = t_.xporTot.otroBloque(uno.link, x.destino.absoluta);
    const auto r = antes ? exportarUno(uno, x.como.corto) : antes;
    if (r && *r) {
      if (!otro || !otro->isEmpty()) h.decir(otro ? *otro : otro.error().texto);
      ya.saldados.push_back(uno);
      continue;
    }
    h.error(kErrorExportar);
    if (r) {
      h.decir(t_.textos(kTxExportarBorrado, {NombreFichero(uno.ruta)}));
      continue;
    }
    uno.motivo = r.error().texto;
    ya.debidos.push_back(uno);
    h.decir(uno.motivo);
    h.decir(t_.textos(kTxQuedaPendiente, {nombrePeriodo(uno.link)}));
  }
}

// With the deletions that these exports allow, and those that still have to wait.
Resultado<> Ejecutor::anotarExportes(const Pendientes::Destino& destino, const Exportados& ya,
                                     Hecho& h) {
  Pendientes libro(t_.db);
  for (const auto& saldado : ya.saldados) TARVO_INTENTAR(libro.saldarExporte(saldado));
  for (const auto& debido : ya.debidos) TARVO_INTENTAR(libro.anotarExporte(destino, debido));
  for (const auto& sigue : ya.siguen) TARVO_INTENTAR(libro.anotarMotivo(sigue));
  TARVO_INTENTAR(libro.limpiar());
  TARVO_INTENTAR(borrarEntregados(h));
  for (const auto& saldado : ya.saldados) {
    TARVO_TOMAR(const auto espera, t_.xporTot.entregados().espera(saldado.link));
    if (espera && *saldado.borrar)
      h.decir(t_.textos(totals::kTxNoSeBorraTodavia, {nombrePeriodo(saldado.link)}));
  }
  return {};
}

Resultado<> Ejecutor::borrarEntregados(Hecho& h) {
  TARVO_TOMAR(const auto libres, t_.xporTot.entregados().borrarLibres());
  for (const auto& libre : libres)
    h.decir(t_.textos(libre.borrado ? totals::kTxEntregadoBorrado : totals::kTxEntregadoCambiado,
                      {totals::TextoPeriodo(libre.periodo)}),
            !libre.borrado);
  return {};
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

  Exportados ya;
  for (const qint64 link : t_.verTot.LosSelec())
    ya.propios.push_back(
        {u"%1.%2.%3"_s.arg(e.numero).arg(e.paso).arg(link), x.destino.ruta, link, x.como.borrar});
  if (ya.propios.empty()) sinElegidos(kErrorExportar, e, h);
  if (p.corto && p.borrar) {
    const auto aviso = t_.xporTot.noVolverian(t_.verTot.LosSelec());
    if (!aviso) return deFallo(aviso.error(), kErrorExportar);
    if (!aviso->isEmpty()) h.decir(*aviso, false);
  }
  exportarPendientes(*viejos, x, ya, h);
  exportarPropios(x, ya, h);
  h.anotar = [this, ya = std::move(ya), destino = x.destino](Hecho& hecho) {
    return anotarExportes(destino, ya, hecho);
  };
  return h;
}

}  // namespace tarvo::automation
