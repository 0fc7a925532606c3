// A step in words.
#include "automation/lenguaje/Proceso.h"
#include "automation/lenguaje/TextosLenguaje.h"
#include "comm/motor/TextosMotor.h"
#include "core/textos/Textos.h"
#include "totals/periodos/Calendario.h"

namespace tarvo::automation {

namespace {

// "ALL" means all groups; an unfilled reference is shown as it is.
QString tarea(const PasoTarea& p, const Textos& t) {
  const QString que = t(motor::kTxTituloClase + numeroDe(p.tarea));
  if (const auto* grupo = std::get_if<qint64>(&p.grupo))
    return t(kTxDecirTarea, {que, Ceros(*grupo, 4)});
  const QString& cuales = std::get<QString>(p.grupo);
  return cuales.startsWith(u'%') ? t(kTxDecirTarea, {que, cuales}) : t(kTxDecirTareaTodos, {que});
}

QString periodos(const PasoPeriodos& p, const Textos& t) {
  const QString que = t(kTxDecirPeriodos + static_cast<int>(*p.verbo) - 1);
  const auto tipo = static_cast<int>(p.tipo);
  return tipo > 0 ? t(kTxDecirTipo, {que, totals::NombreTipoPeriodo(tipo)}) : que;
}

}  // namespace

QString Lenguaje::DecirPaso(const PasoProceso& paso) const {
  return std::visit(
      SegunPaso{
          [](const std::monostate&) { return QString(); },
          [this](const PasoTarea& p) { return tarea(p, t_); },
          [this](const PasoSesion& p) {
            return t_(kTxDecirSesion + static_cast<int>(p.verbo) - 1);
          },
          [this](const PasoControl&) { return t_(kTxDecirEspera); },
          [&](const PasoPeriodos& p) { return p.verbo ? periodos(p, t_) : EscribirPaso(paso); },
          [&](const PasoExportar& p) {
            return p.totaliza ? t_(kTxDecirExportar, {p.fichero}) : EscribirPaso(paso);
          },
          [](const PasoNoper& p) { return p.texto; }},
      paso);
}

}  // namespace tarvo::automation
