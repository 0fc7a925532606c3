#include "totals/ventanas/XporTotVentana.h"

#include <QDir>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/TiraTrabajo.h"
#include "totals/ventanas/ComunTotales.h"
#include "totals/ventanas/TextosTotalesVentanas.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

constexpr size_t kPeriodosNombrados = 8;  // in the question before they are deleted

}  // namespace

XporTotVentana::XporTotVentana(ventanas::Contexto& contexto, const QString& nombre,
                               Periodos& periodos)
    : Ventana(contexto, nombre), p_(periodos), motor_(periodos) {
  ui_.setupUi(cuerpo());
  enlazar();
  montar();
}

void XporTotVentana::montar() {
  ui_.fmtTarvo->setChecked(true);
  const QDir casa(contexto().ajustes.HomeDir);
  ui_.destino->addItems(casa.entryList({u"*.EXP"_s, u"*.exp"_s}, QDir::Files, QDir::Name));
  // The name that a process gives to its file as well.
  ui_.destino->setCurrentText(
      u"EX%1.EXP"_s.arg(contexto().reloj.ahora().qdate().toString(u"yyMMdd"_s)));
  // A completed name would be another file than the typed one, and its Return would do nothing
  // else.
  ui_.destino->setCompleter(nullptr);
  ui_.destino->setInsertPolicy(QComboBox::NoInsert);
  connect(ui_.XporYA, &QPushButton::clicked, this, [this] { exportar(false); });
  connect(ui_.TodosOK, &QPushButton::clicked, this, [this] { exportar(true); });
  connect(ui_.Cancelar, &QPushButton::clicked, this, &XporTotVentana::saltar);
  connect(ui_.TodosKO, &QPushButton::clicked, this, [this] {
    if (trabajo().enMarcha()) return trabajo().parar();
    rechazar();
  });
}

Resultado<> XporTotVentana::entrar(const PuertaXporTot& puerta) {
  std::vector<qint64> links = puerta.links;
  if (links.empty()) {
    TARVO_TOMAR(const auto ultimo, p_.ultimo());
    if (ultimo > 0) links.push_back(ultimo);
  }
  LinkHandle(std::move(links));
  ui_.destino->setFocus();
  return {};
}

void XporTotVentana::LinkHandle(std::vector<qint64> links) {
  cola_ = std::move(links);
  const bool varios = cola_.size() > 1;
  ui_.TodosOK->setEnabled(varios);
  ui_.TodosKO->setEnabled(varios);
  mostrarPrimero();
}

void XporTotVentana::mostrarPrimero() {
  ui_.XporYA->setEnabled(!cola_.empty());
  ui_.Cancelar->setText(t(cola_.empty() ? ventanas::kTxCerrar : ventanas::kTxCancelar));
  if (cola_.empty()) {
    ui_.periodo->setText(t(hechos_ > 0 ? kTxExportacionRealizada : kTxNadaQueExportar));
    ui_.TodosOK->setEnabled(false);
    ui_.TodosKO->setEnabled(false);
    for (QLabel* l : {ui_.descr, ui_.Avisos, ui_.quedan}) l->clear();
    return;
  }
  const auto c = p_.columna(cola_.front());
  if (!haIdoBien(c)) return;
  ui_.periodo->setText(*c ? TextoPeriodo((*c)->periodo).simplified() : t(kTxPeriodoQueFalta));
  ui_.descr->setText(*c ? (*c)->DESCR : QString());
  ui_.Avisos->setText(textoCuentas(cola_.front()));
  ui_.quedan->setText(cola_.size() > 1 ? t(kTxQuedan, static_cast<int>(cola_.size())) : QString());
}

QString XporTotVentana::textoCuentas(qint64 link) {
  auto filas = filasPorClase(p_, link);
  if (!haIdoBien(filas)) return {};
  auto& n = *filas;
  qint64 total = 0;
  for (const auto& [clase, cuantas] : n) total += cuantas;
  QString texto = t(kTxSeExportaran);
  // In the order of the placeholders in the sentence.
  const std::array<qint64, 5> orden{n[TipoTotal::PLUs], n[TipoTotal::GranTotal],
                                    n[TipoTotal::Departamentos], n[TipoTotal::Operadores],
                                    n[TipoTotal::Horario] + n[TipoTotal::OperHora]};
  for (size_t i = 0; i < orden.size(); ++i)
    texto.replace(u'#' + QString::number(i + 1), QString::number(orden[i]));
  return texto + u'\n' + t(kTxSeExportaranN).replace(u"#N"_s, QString::number(total));
}

// Whether the first ones of the queue may be deleted after their export, which Ctrl+Z doesn't undo.
bool XporTotVentana::fueraConformes(size_t cuantos) {
  QStringList lineas;
  for (size_t i = 0; i < cuantos && i < kPeriodosNombrados; ++i) {
    const auto c = p_.columna(cola_[i]);
    if (!haIdoBien(c)) return false;
    if (!*c) continue;
    const auto suyo = resumir(p_, {cola_[i]});
    if (!haIdoBien(suyo)) return false;
    lineas << TextoPeriodo((*c)->periodo).simplified() + u": "_s + textoResumen(*this, *suyo);
  }
  if (cuantos > kPeriodosNombrados)
    lineas << t(kTxYMas).arg(static_cast<int>(cuantos - kPeriodosNombrados));
  const auto ilegibles =
      motor_.noVolverian({cola_.begin(), std::next(cola_.begin(), static_cast<qint64>(cuantos))});
  if (!haIdoBien(ilegibles)) return false;
  const bool noVuelven = ui_.fmtTVC->isChecked() && !ilegibles->isEmpty();
  const QString fichero = NombreFichero(motor_.rutaDestino(ui_.destino->currentText()));
  const QString pregunta = t(kTxExportarYBorrar, static_cast<int>(cuantos)) + u'\n' +
                           t(kTxSonValiosos) + u"\n\n"_s + lineas.join(u'\n') + u"\n\n"_s +
                           (noVuelven ? *ilegibles : t(kTxSoloEnFichero).arg(fichero));
  return ventanas::MyMsgBox::Decide(
      this, contexto().textos, pregunta,
      ventanas::kAceptoCancelo | ventanas::kExclamacion | (noVuelven ? ventanas::kPrudente : 0));
}

// One block in one go: it is in the file whole or not at all.
Resultado<> XporTotVentana::exportarUno() {
  const OpcionesExport como{ui_.fmtTVC->isChecked(), ui_.borrar->isChecked()};
  TARVO_TOMAR(const auto c, p_.columna(cola_.front()));
  TARVO_TOMAR(const auto otro,
              motor_.otroBloque(cola_.front(), motor_.rutaDestino(ui_.destino->currentText())));
  TARVO_TOMAR(const auto hecho,
              motor_.XportRemoto({cola_.front()}, como, ui_.destino->currentText(), {}));
  cola_.erase(cola_.begin());
  hechos_ += hecho ? 1 : 0;
  if (hecho && !otro.isEmpty()) otrosBloques_ << otro;
  if (hecho && como.borrar && c) borrados_.push_back(c->periodo);
  mostrarPrimero();
  return {};
}

void XporTotVentana::exportar(bool todos) {
  if (motor_.rutaDestino(ui_.destino->currentText()).isEmpty()) {
    ventanas::MyMsgBox::Decide(this, contexto().textos, t(kTxNoSePuedeAbrir),
                               ventanas::kSoloAcepto | ventanas::kCritico);
    return ui_.destino->setFocus();
  }
  const size_t cuantos = todos ? cola_.size() : 1;
  if (ui_.borrar->isChecked() && !fueraConformes(cuantos)) return ui_.destino->setFocus();
  ventanas::trabajar(
      *this, nullptr,
      {.que = t(kTxExportandoPeriodos),
       .total = static_cast<qint64>(cuantos),
       .paso = [this](qint64) { return exportarUno(); },
       .acabar = [this](const ventanas::Faena::Fin& fin) { acabar(fin); },
       .parado =
           [this] {
             const QString fuera = textoBorrados();
             return t(kTxExportacionRetenida) + (fuera.isEmpty() ? fuera : u". "_s + fuera);
           },
       .quietos = {ui_.XporYA, ui_.TodosOK, ui_.destino, ui_.marcoFormato, ui_.borrar}});
}

// What this window has deleted; empty if nothing.
QString XporTotVentana::textoBorrados() const {
  if (borrados_.empty()) return {};
  return t(kTxQueSeBorro, static_cast<int>(borrados_.size())).arg(TextoPeriodos(borrados_));
}

void XporTotVentana::acabar(const ventanas::Faena::Fin& fin) {
  ui_.TodosOK->setEnabled(cola_.size() > 1);
  mostrarPrimero();
  if (fin.error) return ui_.destino->setFocus();
  if (fin.parado) return;
  const QString fuera = textoBorrados();
  if (!otrosBloques_.isEmpty())
    decirDuda(t(kTxExportacionRealizada) + u". "_s + otrosBloques_.takeFirst(),
              otrosBloques_.join(u'\n'));
  else
    decirBien(t(kTxExportacionRealizada) + u": "_s + t(kTxNPeriodos, hechos_) + u", "_s +
              motor_.rutaDestino(ui_.destino->currentText()) +
              (fuera.isEmpty() ? fuera : u". "_s + fuera));
  (cola_.empty() ? ui_.Cancelar : ui_.XporYA)->setFocus();
}

// Stops the export if it is running; otherwise skips this period, and closes after the last.
void XporTotVentana::saltar() {
  if (trabajo().enMarcha()) return trabajo().parar();
  if (!cola_.empty()) cola_.erase(cola_.begin());
  if (cola_.empty()) return rechazar();
  mostrarPrimero();
}

}  // namespace tarvo::totals
