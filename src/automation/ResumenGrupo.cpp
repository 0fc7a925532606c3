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

// --- the night under way ------------------------------------------------------------------------

bool LectorResumen::porPedir(int grupo) const {
  return f_.curso && (f_.curso->aTodos || f_.curso->porPedir.contains(grupo));
}

// Of what is done already; empty while nothing is.
QString LectorResumen::loHechoAhora(const DeGrupo& d) const {
  std::vector<TipoTarea> leidas, otras;
  bool faltaLeer = false;
  int leido = 0, cero = 0;
  for (const auto& [clase, asunto] : d.clases) {
    const bool lectura = esDeTotales(clase);
    if (lectura) leido = std::max(leido, asunto.vez);
    if (asunto.tarea.estado != TareaHecha::Estado::Hecha)
      faltaLeer = faltaLeer || lectura;
    else if (clase == TipoTarea::TxZero)
      cero = asunto.vez;
    else
      (lectura ? leidas : otras).push_back(clase);
  }
  const bool aCero = cero > leido;
  const Textos& t = f_.textos;
  QStringList frases;
  if (faltaLeer && !leidas.empty())
    frases << t(kTxYaRecogido, {nombresDe(leidas)});
  else if (!leidas.empty() && d.memorizado)
    frases << t(aCero ? kTxRecogidoMemoCero : kTxRecogidoMemo);
  else if (!leidas.empty())
    frases << t(aCero ? kTxRecogidoYCero : kTxRecogido);
  else if (d.memorizado)
    frases << t(aCero ? kTxMemoCero : kTxMemorizado);
  else if (aCero)
    frases << t(kTxPuestoACero);
  if (frases.isEmpty() && !otras.empty()) frases << t(kTxYaHecho, {nombresDe(otras)});
  return frases.join(u' ');
}

LectorResumen::Avance LectorResumen::avanceDe(int grupo, const DeGrupo& d) const {
  std::vector<TipoTarea> ahora, espera;
  for (const auto& [clase, asunto] : d.clases)
    if (asunto.tarea.estado == TareaHecha::Estado::EnCola)
      (f_.curso->enLinea.contains({grupo, clase}) ? ahora : espera).push_back(clase);
  const Textos& t = f_.textos;
  Avance a{.frases = {}, .acabado = ahora.empty() && espera.empty() && !porPedir(grupo)};
  if (const QString hecho = loHechoAhora(d); !hecho.isEmpty()) a.frases << hecho;
  if (!ahora.empty()) a.frases << t(kTxEnCurso, {nombresDe(ahora)});
  if (!espera.empty()) a.frases << t(kTxEnEspera, {nombresDe(espera)});
  if (a.frases.isEmpty() && porPedir(grupo)) a.frases << t(kTxEsperaSuTurno);
  if (ahora.empty() && espera.empty() && !d.clases.empty() && !a.frases.isEmpty())
    a.frases = {t(kTxProcesoSigue, {a.frases.join(u' ')})};
  return a;
}

// --- the verdict --------------------------------------------------------------------------------

void LectorResumen::juzgar(GrupoResumen& g, bool comunica, const DeGrupo& d) const {
  const Textos& t = f_.textos;
  const qint64 noche = r_.ejecuciones.empty() ? 0 : r_.ejecuciones[r_.noche].numero;
  const FinEjecucion fin = noche > 0 ? r_.ejecuciones[r_.noche].fin : FinEjecucion::Bien;
  const bool cortada = fin == FinEjecucion::Abortada || fin == FinEjecucion::Interrumpida;
  const auto suyo = aMano_.find(g.grupo);
  const Memorizado* memo = suyo == aMano_.end() || d.enCurso ? nullptr : &suyo->second;
  if (comunica && d.clases.empty() && !d.enCurso && cortada &&
      leidoEntero(g.grupo, TipoTarea::RxGrTot, r_.ejecuciones[r_.noche].inicio)) {
    const Fecha cuando = lecturas_.at({g.grupo, TipoTarea::RxGrTot});
    g.estado = EstadoGrupo::Bien;
    g.arreglado = true;
    g.motivos << t(kTxRecogidoAMano, {cuando.general()});
    if (memo) g.motivos << t(kTxMemorizadoAMano, {memo->periodo});
    g.motivo = g.motivos.join(u' ');
    return;
  }
  if ((d.clases.empty() && !d.enCurso) || !comunica) {
    g.motivos << t(!comunica                ? kTxNoComunica
                   : r_.ejecuciones.empty() ? kTxNadaEjecutado
                                            : kTxNadieLoNombra);
    g.motivo = g.motivos.first();
    return;
  }
  std::map<QString, std::vector<TipoTarea>> sinLeer;  // by reason
  std::vector<TipoTarea> cortadas, sinHacer;  // what can wait, once its sales are in a period
  QStringList fallos, dudas;
  bool leido = false, porLeer = false, deLaNoche = false;
  for (const auto& [clase, asunto] : d.clases) {
    const bool lectura = esDeTotales(clase);
    const QString motivo = sinPunto(asunto.tarea.motivo);
    if (asunto.tarea.estado != TareaHecha::Estado::Hecha && asunto.ejecucion <= noche)
      deLaNoche = true;
    if (asunto.tarea.estado != TareaHecha::Estado::Hecha)
      g.ejecucion = std::max(g.ejecucion, asunto.ejecucion);
    if (asunto.tarea.estado == TareaHecha::Estado::EnCola) {
      porLeer = porLeer || lectura;
      if (!d.enCurso) (memo && !lectura ? sinHacer : cortadas).push_back(clase);
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
    fallos << (leido || porLeer || sinLeer.size() > 1 || !cortadas.empty()
                   ? t(kTxNoRecogido, {nombresDe(clases), motivo})
                   : t(kTxNadaRecogido, {motivo}));
  if (!cortadas.empty()) fallos << t(kTxCortado, {nombresDe(cortadas)});
  if (!sinHacer.empty()) dudas << t(kTxCortado, {nombresDe(sinHacer)});
  dudas = d.avisos + dudas;  // the reports explain what wasn't done
  const Avance avance = d.enCurso ? avanceDe(g.grupo, d) : Avance{};
  const QStringList marcha =
      avance.frases.isEmpty() ? QStringList() : QStringList(avance.frases.join(u' '));
  // While there is something left to be done with it a doubt may still be settled.
  const bool dudoso = !dudas.isEmpty() && (!d.enCurso || avance.acabado);
  g.estado = !fallos.isEmpty() ? EstadoGrupo::Fallido
             : dudoso          ? EstadoGrupo::Dudoso
             : d.enCurso       ? EstadoGrupo::EnMarcha
                               : EstadoGrupo::Bien;
  const bool mal = g.estado == EstadoGrupo::Fallido || g.estado == EstadoGrupo::Dudoso;
  g.posterior = mal && !deLaNoche && (d.avisos.isEmpty() || d.avisado > noche);
  g.arreglado = d.arreglado;
  if (!d.avisos.isEmpty()) g.ejecucion = std::max(g.ejecucion, d.avisado);
  if (g.ejecucion == 0) g.ejecucion = d.recogida;
  g.motivos = fallos + (dudoso ? dudas + marcha : marcha + dudas);
  if (g.motivos.isEmpty() && d.aMano) g.motivos << t(kTxRecogidoAMano, {d.aMano->general()});
  if (g.motivos.isEmpty()) g.motivos << loRecogido(d);
  g.motivo = g.motivos.first();
  if (!memo) return;
  g.motivos << t(kTxMemorizadoAMano, {memo->periodo});
  if (g.estado == EstadoGrupo::Bien) g.motivo = g.motivos.join(u' ');
}

}  // namespace tarvo::automation
