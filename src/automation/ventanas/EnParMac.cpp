#include "automation/ventanas/EnParMac.h"

#include "automation/ventanas/TextosAutomationVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr qint64 kMenor = -32768, kMayor = 32767;

}  // namespace

EnParMac::EnParMac(Contexto& c, const QString& nombre) : Ventana(c, nombre) {
  ui_.setupUi(cuerpo());
  ponerLetra(*ui_.lblAviso, Letra::Secundaria);
  ui_.lblFalta->hide();
  for (QDateEdit* fecha : {ui_.Desde, ui_.Hasta}) {
    fecha->setDisplayFormat(u"dd/MM/yyyy"_s);
    fecha->setCalendarPopup(true);
    fecha->setDate(c.reloj.ahora().qdate());
  }
  enlazar();
  conectar();
}

void EnParMac::conectar() {
  connect(ui_.Acepto, &QPushButton::clicked, this, [this] { responder(); });
  connect(ui_.Cancelo, &QPushButton::clicked, this, [this] { rechazar(); });
  connect(ui_.Valor, &QLineEdit::textEdited, ui_.lblFalta, &QLabel::hide);
  for (QRadioButton* opcion : {ui_.TodoElMes, ui_.LosDias, ui_.OtrasFechas})
    connect(opcion, &QRadioButton::toggled, this, [this] { ponerRango(); });
  for (QDateEdit* fecha : {ui_.Desde, ui_.Hasta})
    connect(fecha, &QDateEdit::dateChanged, this, [this] { ponerRango(); });
  connect(ui_.Mes, &MesRango::rangoCambiado, this, [this] {
    const QString texto = contexto().textos(
        kTxDelAl, {Fecha::de(ui_.Mes->desde()).corta(), Fecha::de(ui_.Mes->hasta()).corta()});
    ui_.lblRango->setText(texto);
  });
  connect(ui_.Mes, &MesRango::diaElegido, this, [this] { ui_.LosDias->setChecked(true); });
}

Resultado<> EnParMac::preparar(const Argumentos& argumentos) {
  const QString nombre = argumentos.value(u"nombre"_s).toString();
  clase_ = nombre.isEmpty() ? QChar(u'%') : nombre[0];
  respuesta_ = argumentos.value(u"respuesta"_s).value<std::shared_ptr<Contestacion>>();
  ui_.lblPregunta->setText(argumentos.value(u"pregunta"_s).toString());
  const bool deFechas = clase_ == u'#';
  ui_.Valor->setVisible(!deFechas);
  ui_.Valor->setAccessibleName(ui_.lblPregunta->text());
  ui_.fechas->setVisible(deFechas);
  if (deFechas) {
    ui_.Mes->irAlMes(contexto().reloj.ahora().qdate());
    ponerRango();
  }
  QWidget* primero = deFechas ? static_cast<QWidget*>(ui_.TodoElMes) : ui_.Valor;
  primero->setFocus();
  return {};
}

void EnParMac::ponerRango() {
  const bool otras = ui_.OtrasFechas->isChecked();
  ui_.Mes->setEnabled(!otras);
  for (QWidget* w : {static_cast<QWidget*>(ui_.rotDesde), static_cast<QWidget*>(ui_.Desde),
                     static_cast<QWidget*>(ui_.rotHasta), static_cast<QWidget*>(ui_.Hasta)})
    w->setEnabled(otras);
  ui_.lblRango->setVisible(!otras);
  ui_.lblFalta->hide();
  ui_.Mes->setTodo(ui_.TodoElMes->isChecked());
}

// --- the answer ---------------------------------------------------------------------------------

void EnParMac::responder() {
  auto dado = valor();
  if (!dado) return;
  if (respuesta_) *respuesta_ = std::move(*dado);
  aceptar();
}

std::optional<Contestacion> EnParMac::valor() {
  if (clase_ == u'%') return numero();
  if (clase_ == u'#') return rango();
  return Contestacion(ui_.Valor->text());
}

std::optional<Contestacion> EnParMac::numero() {
  bool esNumero = false;
  const qint64 n = ui_.Valor->text().trimmed().toLongLong(&esNumero);
  if (esNumero && n >= kMenor && n <= kMayor) return Contestacion(n);
  rehusar(kTxNumeroMalo, ui_.Valor);
  ui_.Valor->selectAll();
  return std::nullopt;
}

std::optional<Contestacion> EnParMac::rango() {
  const bool otras = ui_.OtrasFechas->isChecked();
  const QDate desde = otras ? ui_.Desde->date() : ui_.Mes->desde();
  const QDate hasta = otras ? ui_.Hasta->date() : ui_.Mes->hasta();
  if (desde <= hasta) return Contestacion(std::pair(Fecha::de(desde), Fecha::de(hasta)));
  rehusar(kTxFechasAlReves, ui_.Hasta);
  return std::nullopt;
}

void EnParMac::rehusar(int texto, QWidget* campo) {
  ui_.lblFalta->setText(t(texto));
  ui_.lblFalta->setStyleSheet(u"color:"_s + colorDe(Tinte::Mal).name());
  ui_.lblFalta->show();
  campo->setFocus();
}

}  // namespace tarvo::automation
