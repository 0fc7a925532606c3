#include "totals/ventanas/ImpUnaFilaVentana.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>

#include "core/ventanas/TextosVentanas.h"
#include "totals/periodos/Calendario.h"
#include "totals/ventanas/ComunTotales.h"
#include "totals/ventanas/TextosTotalesVentanas.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

ImpUnaFilaVentana::ImpUnaFilaVentana(ventanas::Contexto& contexto, const QString& nombre)
    : FichaDe(contexto, nombre) {
  auto f = formulario(kTxIntervaloTiempo);
  titulo_ = f.titulo(u"titulo"_s);
  desde_ = montar(f, r.desde, ventanas::kTxDesdeConLetra, kTxDesdeCuando, u"Desde"_s);
  hasta_ = montar(f, r.hasta, ventanas::kTxHasta, ventanas::kTxHastaDosPuntos, u"Hasta"_s);
  const int ancho = std::max(desde_.si->sizeHint().width(), hasta_.si->sizeHint().width());
  for (const Extremo& e : {desde_, hasta_}) e.si->setMinimumWidth(ancho);
  f.muelle();
  ponerFrase(0, false);
  acabar({420, 200}, {.textoAcepto = ventanas::kTxAceptar, .textoCancelo = ventanas::kTxCancelar});
}

ImpUnaFilaVentana::Extremo ImpUnaFilaVentana::montar(ventanas::Formulario& f,
                                                     ExtremoIntervalo& donde, int rotulo, int ayuda,
                                                     const QString& nombre) {
  auto* si = new QCheckBox(t(rotulo));
  auto *dia = new QLineEdit, *ano = new QLineEdit;
  auto* mes = new QComboBox;
  si->setObjectName(u"ck"_s + nombre);
  dia->setObjectName(nombre.toLower());
  mes->setObjectName(u"mes"_s + nombre);
  ano->setObjectName(u"ano"_s + nombre);
  ventanas::llenar(*mes, mesesDelAno());
  for (QWidget* w : {static_cast<QWidget*>(dia), static_cast<QWidget*>(mes)})
    w->setAccessibleName(t(ayuda));
  ano->setAccessibleName(t(kTxExtremoAno).arg(t(ayuda)));
  f.enLinea({si, dia, mes, ano, nullptr});
  enlazarCampo(*si, donde.puesto);
  const Extremo e{si, &enlazarCampo(*dia, fecha(donde.dia)), &enlazarCampo(*mes, donde.mes),
                  &enlazarCampo(*ano, numero(donde.ano, kPrimerAno, kUltimoAno))};
  connect(si, &QCheckBox::toggled, this, [this, e] { poner(e); });
  return e;
}

// Shows the fields of the kind of period; a disabled one isn't read.
void ImpUnaFilaVentana::poner(const Extremo& e) const {
  const bool mes = mision_ == kMensual, ano = mes || mision_ == kAnual;
  for (const auto& [campo, suyo] : {std::pair{e.dia, !ano}, {e.mes, mes}, {e.ano, ano}}) {
    campo->control().setVisible(suyo);
    campo->control().setEnabled(suyo && e.si->isChecked());
  }
}

Resultado<> ImpUnaFilaVentana::entrar(const PuertaImpUnaFila& puerta) {
  mision_ = puerta.mision;
  titulo_->setText(puerta.titulo);
  const Fecha hoy = contexto().reloj.ahora().dia();
  const auto extremo = [](QDate d) {
    return ExtremoIntervalo{false, Fecha::de(d), d.month(), d.year()};
  };
  const QDate antes = hoy.qdate().addYears(mision_ == kAnual ? -5 : -1);
  TARVO_INTENTAR(editar({extremo(antes), extremo(hoy.qdate())}));
  for (const Extremo& e : {desde_, hasta_}) poner(e);
  desde_.si->setFocus();
  return {};
}

std::optional<Fecha> ImpUnaFilaVentana::fechaDe(const ExtremoIntervalo& e) const {
  if (!e.puesto) return std::nullopt;
  if (mision_ == kMensual) return Fecha::de(QDate(e.ano, e.mes, 1));
  if (mision_ == kAnual) return Fecha::de(QDate(e.ano, 1, 1));
  return e.dia;
}

std::vector<ventanas::Ficha::FaltaCampo> ImpUnaFilaVentana::comprobar() {
  const auto desde = fechaDe(r.desde), hasta = fechaDe(r.hasta);
  if (!desde || !hasta || *desde <= *hasta) return {};
  const bool ano = mision_ == kMensual || mision_ == kAnual;
  return {{ano ? hasta_.ano : hasta_.dia, t(kTxIntervaloNoValido)}};
}

}  // namespace tarvo::totals
