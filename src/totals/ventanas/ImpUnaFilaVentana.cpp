#include "totals/ventanas/ImpUnaFilaVentana.h"

#include <QLabel>
#include <QLocale>

#include "core/ventanas/TextosVentanas.h"
#include "totals/periodos/Calendario.h"
#include "totals/ventanas/TextosTotalesVentanas.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

ImpUnaFilaVentana::ImpUnaFilaVentana(ventanas::Contexto& contexto, const QString& nombre)
    : Ficha(contexto, nombre) {
  auto f = formulario(kTxIntervaloTiempo);
  titulo_ = f.titulo(u"titulo"_s);
  const auto extremo = [&](int rotulo, int ayuda, const QString& si, const QString& fecha) {
    Extremo e{new QCheckBox(t(rotulo)), new QDateEdit};
    e.si->setObjectName(si);
    e.fecha->setObjectName(fecha);
    e.fecha->setAccessibleName(t(ayuda));
    e.fecha->setLocale(QLocale(QLocale::Spanish));
    e.fecha->setEnabled(false);
    connect(e.si, &QCheckBox::toggled, e.fecha, &QWidget::setEnabled);
    f.enLinea({e.si, e.fecha, nullptr});
    return e;
  };
  desde_ = extremo(ventanas::kTxDesdeConLetra, kTxDesdeCuando, u"ckDesde"_s, u"desde"_s);
  hasta_ = extremo(ventanas::kTxHasta, ventanas::kTxHastaDosPuntos, u"ckHasta"_s, u"hasta"_s);
  const int ancho = std::max(desde_.si->sizeHint().width(), hasta_.si->sizeHint().width());
  for (const Extremo& e : {desde_, hasta_}) e.si->setMinimumWidth(ancho);
  f.muelle();
  acabar({380, 180}, {.textoAcepto = ventanas::kTxAceptar, .textoCancelo = ventanas::kTxCancelar});
}

Resultado<> ImpUnaFilaVentana::entrar(const PuertaImpUnaFila& puerta) {
  mision_ = puerta.mision;
  titulo_->setText(puerta.titulo);
  const QDate hoy = contexto().reloj.ahora().qdate();
  for (const Extremo& e : {desde_, hasta_}) {
    e.fecha->setDisplayFormat(mision_ == kMensual ? u"MMMM yyyy"_s
                              : mision_ == kAnual ? u"yyyy"_s
                                                  : u"dd/MM/yyyy"_s);
    e.fecha->setCalendarPopup(mision_ != kMensual && mision_ != kAnual);
  }
  desde_.fecha->setDate(hoy.addYears(mision_ == kAnual ? -5 : -1));
  hasta_.fecha->setDate(hoy);
  desde_.si->setFocus();
  return {};
}

// The date selected, set back to the first day of its month or year if that is the kind of period.
std::optional<Fecha> ImpUnaFilaVentana::fechaDe(const Extremo& e) const {
  if (!e.si->isChecked()) return std::nullopt;
  QDate d = e.fecha->date();
  if (mision_ == kMensual) d = QDate(d.year(), d.month(), 1);
  if (mision_ == kAnual) d = QDate(d.year(), 1, 1);
  return Fecha::de(d);
}

Resultado<> ImpUnaFilaVentana::aplicar() {
  const auto desde = fechaDe(desde_), hasta = fechaDe(hasta_);
  if (!desde || !hasta || *desde <= *hasta) return {};
  desde_.fecha->setFocus();
  return fallo(Fallo::Formato, t(kTxIntervaloNoValido));
}

}  // namespace tarvo::totals
