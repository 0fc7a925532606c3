// The verdict on a group: the results of its tasks, in one word and one sentence.
#include <algorithm>

#include "automation/Resumen.h"
#include "automation/TextosAutomation.h"
#include "comm/motor/TextosMotor.h"
#include "totals/periodos/Clases.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

// To precede our own full stop.
QString sinPunto(QString texto) {
  texto = texto.simplified();
  while (texto.endsWith(u'.')) texto.chop(1);
  return texto;
}

}  // namespace

QString LectorResumen::nombresDe(const std::vector<TipoTarea>& clases) const {
  QStringList nombres;
  for (const TipoTarea c : clases) nombres << f_.textos(motor::kTxMensajeClase + numeroDe(c));
  return nombres.join(u", "_s);
}

// A zeroing counts if it came after all readings.
QString LectorResumen::loRecogido(const DeGrupo& d) const {
  int leido = 0, aCero = 0;
  for (const auto& [clase, asunto] : d.clases) {
    if (esDeTotales(clase)) leido = std::max(leido, asunto.vez);
    if (clase == TipoTarea::TxZero) aCero = asunto.vez;
  }
  return f_.textos(leido == 0 ? kTxHecho : aCero > leido ? kTxRecogidoYCero : kTxRecogido);
}

void LectorResumen::juzgar(GrupoResumen& g, bool comunica, const DeGrupo& d) const {
  const Textos& t = f_.textos;
  if (d.clases.empty() || !comunica) {
    g.motivos << t(!comunica                ? kTxNoComunica
                   : r_.ejecuciones.empty() ? kTxNadaEjecutado
                                            : kTxNadieLoNombra);
    g.motivo = g.motivos.first();
    return;
  }
  std::map<QString, std::vector<TipoTarea>> sinLeer;  // by reason
  std::vector<TipoTarea> cortadas, enCurso;
  QStringList fallos, dudas;
  bool leido = false;
  for (const auto& [clase, asunto] : d.clases) {
    const bool lectura = esDeTotales(clase);
    const QString motivo = sinPunto(asunto.tarea.motivo);
    if (asunto.tarea.estado == TareaHecha::Estado::EnCola) {
      (asunto.fin == FinEjecucion::EnMarcha ? enCurso : cortadas).push_back(clase);
    } else if (asunto.tarea.estado == TareaHecha::Estado::Hecha) {
      leido = leido || lectura;
    } else if (lectura) {
      sinLeer[motivo].push_back(clase);
    } else {
      dudas << (clase == TipoTarea::TxZero ? t(kTxSinCero, {motivo})
                                           : t(kTxNoHecho, {nombresDe({clase}), motivo}));
    }
  }
  for (const auto& [motivo, clases] : sinLeer)
    fallos << (leido || sinLeer.size() > 1 || !cortadas.empty()
                   ? t(kTxNoRecogido, {nombresDe(clases), motivo})
                   : t(kTxNadaRecogido, {motivo}));
  if (!cortadas.empty()) fallos << t(kTxCortado, {nombresDe(cortadas)});
  QStringList marcha;
  if (!enCurso.empty()) marcha << t(kTxEnCurso, {nombresDe(enCurso)});
  const bool sigue = std::ranges::any_of(
      d.clases, [](const auto& c) { return c.second.fin == FinEjecucion::EnMarcha; });
  if (sigue && marcha.isEmpty()) marcha << t(kTxProcesoSigue, {loRecogido(d)});
  dudas = d.avisos + dudas;  // the reports explain what wasn't done
  g.estado = !fallos.isEmpty()   ? EstadoGrupo::Fallido
             : !marcha.isEmpty() ? EstadoGrupo::EnMarcha
             : !dudas.isEmpty()  ? EstadoGrupo::Dudoso
                                 : EstadoGrupo::Bien;
  g.motivos = fallos + marcha + dudas;
  if (g.motivos.isEmpty()) g.motivos << loRecogido(d);
  g.motivo = g.motivos.first();
}

}  // namespace tarvo::automation
