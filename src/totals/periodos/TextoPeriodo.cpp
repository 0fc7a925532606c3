// A period as text on screens, in traces and in export files.
#include "totals/TextosTotals.h"
#include "totals/periodos/Calendario.h"

namespace tarvo::totals {

namespace {

constexpr std::array<const char16_t*, 12> kMeses{
    u"enero", u"febrero", u"marzo",      u"abril",   u"mayo",      u"junio",
    u"julio", u"agosto",  u"septiembre", u"octubre", u"noviembre", u"diciembre"};

QString mesDe(QDate d) {
  return d.isValid() ? QString::fromUtf16(kMeses[static_cast<size_t>(d.month() - 1)]) : QString();
}

}  // namespace

QString NombreTipoPeriodo(int tipo) {
  switch (tipo) {
    case kDiario:
      return QStringLiteral("DIARIO");
    case kSemanal:
      return QStringLiteral("SEMANAL");
    case kMensual:
      return QStringLiteral("MENSUAL");
    case kAnual:
      return QStringLiteral("ANUAL");
    default:
      return QStringLiteral("OTROS");
  }
}

QString FormatoPeriodo(int tipo, Fecha fecha) {
  const QDate d = fecha.qdate();
  switch (tipo) {
    case kDiario:
      return d.toString(u"d ") + mesDe(d) + d.toString(u" yyyy");
    case kSemanal:
      return d.toString(u"'Semana' d MM yy");
    case kMensual:
      return d.toString(u"yyyy ") + mesDe(d);
    case kAnual:
      return d.toString(u"'Año' yyyy");
    default:
      return fecha.qdatetime().toString(u"dd/MM/yy  HH:mm:ss");
  }
}

QString TextoPeriodo(const Periodo& p) {
  QString fechas = FormatoPeriodo(p.tipo, p.desde);
  if (p.tipo < kDiario || p.tipo > kAnual)
    fechas = QStringLiteral("%1 --- %2").arg(fechas, FormatoPeriodo(p.tipo, p.hasta));
  return QStringLiteral("%1    (%2)").arg(fechas, NombreTipoPeriodo(p.tipo));
}

QString DecirPeriodo(const Periodo& p, const Textos& textos) {
  const QDate d = p.desde.qdate();
  const auto momento = [](Fecha f) { return f.corta() + u' ' + f.horaLarga().left(5); };
  switch (p.tipo) {
    case kDiario:
      return textos(kTxEnLetraDia, {d.day(), mesDe(d), d.year()});
    case kSemanal:
      return textos(kTxEnLetraSemana, {p.desde.corta(), p.hasta.corta()});
    case kMensual:
      return textos(kTxEnLetraMes, {mesDe(d), d.year()});
    case kAnual:
      return textos(kTxEnLetraAnyo, {d.year()});
    default:
      return textos(kTxEnLetraOtros, {momento(p.desde), momento(p.hasta)});
  }
}

QString TextoPeriodos(const std::vector<Periodo>& periodos) {
  QStringList textos;
  for (const Periodo& p : periodos) textos << TextoPeriodo(p).simplified();
  return textos.join(QStringLiteral(", "));
}

}  // namespace tarvo::totals
