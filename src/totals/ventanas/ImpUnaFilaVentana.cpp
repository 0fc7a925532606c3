#include "totals/ventanas/ImpUnaFilaVentana.h"

#include "core/ventanas/aspecto/Medidas.h"
#include "totals/periodos/Calendario.h"
#include "totals/ventanas/ComunTotales.h"
#include "totals/ventanas/TextosTotalesVentanas.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

ImpUnaFilaVentana::ImpUnaFilaVentana(ventanas::Contexto& contexto, const QString& nombre)
    : Ventana(contexto, nombre) {
  ui_.setupUi(cuerpo());
  enlazar();
  connect(ui_.ckDesde, &QCheckBox::toggled, ui_.desde, &QWidget::setEnabled);
  connect(ui_.ckHasta, &QCheckBox::toggled, ui_.hasta, &QWidget::setEnabled);
  connect(ui_.Acepto, &QPushButton::clicked, this, &ImpUnaFilaVentana::aplicar);
  connect(ui_.Cancelo, &QPushButton::clicked, this, &ImpUnaFilaVentana::rechazar);
}

Resultado<> ImpUnaFilaVentana::preparar(const ventanas::Argumentos& argumentos) {
  salida_ = salidaDe<IntervaloFila>(argumentos);
  mision_ = argumentos.value(u"mision"_s, kDiario).toInt();
  ui_.titulo->setText(argumentos.value(u"titulo"_s).toString());
  const QDate hoy = contexto().reloj.ahora().qdate();
  // Months and years are stepped through; days are picked.
  const QString formato = mision_ == kMensual ? u"MMMM yyyy"_s
                          : mision_ == kAnual ? u"yyyy"_s
                                              : u"dd/MM/yyyy"_s;
  for (QDateEdit* f : {ui_.desde, ui_.hasta}) {
    f->setLocale(QLocale(QLocale::Spanish));
    f->setDisplayFormat(formato);
    f->setCalendarPopup(mision_ != kMensual && mision_ != kAnual);
  }
  ui_.desde->setDate(hoy.addYears(mision_ == kAnual ? -5 : -1));
  ui_.hasta->setDate(hoy);
  ui_.ckDesde->setFocus();
  return {};
}

// The first day of what was picked: of the month, of the year.
std::optional<Fecha> ImpUnaFilaVentana::fechaDe(const QCheckBox& si, const QDateEdit& fecha) const {
  if (!si.isChecked()) return std::nullopt;
  QDate d = fecha.date();
  if (mision_ == kMensual) d = QDate(d.year(), d.month(), 1);
  if (mision_ == kAnual) d = QDate(d.year(), 1, 1);
  return Fecha::de(d);
}

void ImpUnaFilaVentana::aplicar() {
  const auto desde = fechaDe(*ui_.ckDesde, *ui_.desde), hasta = fechaDe(*ui_.ckHasta, *ui_.hasta);
  if (desde && hasta && *desde > *hasta) {
    decirFallo(t(kTxIntervaloNoValido));
    return ui_.desde->setFocus();
  }
  if (salida_) *salida_ = {desde, hasta};
  aceptar();
}

}  // namespace tarvo::totals
