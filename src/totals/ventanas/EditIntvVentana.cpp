// The period. What is keyed in by hand is in EditIntvManual.cpp.
#include "totals/ventanas/EditIntvVentana.h"

#include <QLocale>

#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "totals/ventanas/ComunTotales.h"
#include "totals/ventanas/TextosTotalesVentanas.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

QString enCampo(int tipo, Fecha f) {
  return tipo == kOtros ? f.general() : f.corta();
}

}  // namespace

EditIntvVentana::EditIntvVentana(ventanas::Contexto& contexto, const QString& nombre,
                                 Periodos& periodos)
    : Ventana(contexto, nombre), p_(periodos) {
  ui_.setupUi(cuerpo());
  enlazar();
  montar();
}

Resultado<> EditIntvVentana::entrar(const PuertaEditIntv& puerta) {
  nuevo_ = !puerta.link;
  link_ = puerta.link.value_or(0);
  const Fecha hoy = contexto().reloj.ahora().dia();
  Periodo p{puerta.tipo, hoy, hoy + Fecha::kUltimoSegundo};
  if (!nuevo_) {
    TARVO_TOMAR(const auto c, p_.columna(link_));
    if (!c) return fallo(Fallo::NoExiste, t(kTxPeriodoQueFalta));
    p = c->periodo;
  }
  elegirEn(*ui_.LstTipo, p.tipo);
  ui_.Fecha1->setText(enCampo(p.tipo, p.desde));
  ui_.FechaF->setText(enCampo(kOtros, p.hasta));
  TARVO_INTENTAR(llenarLista(*ui_.LstGrupos, contexto(), contexto().nombres.grupos(), 4, 0));
  ui_.LstGrupos->setCurrentIndex(-1);
  TARVO_INTENTAR(llenarLista(*ui_.LstOper, contexto(), contexto().nombres.operadores(), 4, 0));
  ui_.LstOper->setCurrentIndex(-1);
  tipoCambiado();
  claseCambiada();
  pintarEntradas();
  setWindowTitle(t(nuevo_ ? kTxNuevoPeriodo : kTxModificarPeriodo));
  ui_.LstTipo->setFocus();
  return {};
}

void EditIntvVentana::tipoCambiado() {
  const int tipo = ui_.LstTipo->currentData().toInt();
  const bool conMes = tipo == kMensual, conAno = conMes || tipo == kAnual;
  const auto escrita = Fecha::leer(ui_.Fecha1->text().trimmed());
  if (conAno && escrita) {
    ui_.LstMes->setCurrentIndex(escrita->qdate().month() - 1);
    ui_.spAno->setValue(escrita->qdate().year());
  }
  ui_.LstMes->setVisible(conMes);
  ui_.rotuloMes->setVisible(conMes);
  ui_.spAno->setVisible(conAno);
  ui_.rotuloAno->setVisible(conAno);
  ui_.Fecha1->setVisible(!conAno);
  ui_.rotulo1->setVisible(!conAno);
  ui_.FechaF->setVisible(tipo == kOtros);
  ui_.rotuloF->setVisible(tipo == kOtros);
  if (conAno) mesCambiado();
  pintarLimites();
}

// The first day of the month or year, for the kinds that are chosen so.
void EditIntvVentana::mesCambiado() {
  const int tipo = ui_.LstTipo->currentData().toInt();
  if (tipo != kMensual && tipo != kAnual) return;
  const int mes = tipo == kMensual ? ui_.LstMes->currentIndex() + 1 : 1;
  ui_.Fecha1->setText(Fecha::de(QDate(ui_.spAno->value(), mes, 1)).corta());
  pintarLimites();
}

void EditIntvVentana::pintarLimites() {
  const int tipo = ui_.LstTipo->currentData().toInt();
  const auto desde = Fecha::leer(ui_.Fecha1->text().trimmed());
  const auto hasta = tipo == kOtros ? Fecha::leer(ui_.FechaF->text().trimmed()) : desde;
  if (!desde || !hasta) return ui_.limites->setText({});
  const Periodo p = LimitesPeriodo(tipo, *desde, *hasta);
  ui_.limites->setText(t(kTxDelAl).arg(p.desde.general(), p.hasta.general()));
}

std::optional<Periodo> EditIntvVentana::leerPeriodo() {
  const auto mal = [this](int texto, QLineEdit& campo) -> std::optional<Periodo> {
    ventanas::MyMsgBox::Decide(this, contexto().textos, t(texto),
                               ventanas::kSoloAcepto | ventanas::kExclamacion);
    campo.setFocus();
    campo.selectAll();
    return std::nullopt;
  };
  const int tipo = ui_.LstTipo->currentData().toInt();
  const auto desde = Fecha::leer(ui_.Fecha1->text().trimmed());
  if (!desde) return mal(kTxFechaNoValida, *ui_.Fecha1);
  if (tipo != kOtros) return LimitesPeriodo(tipo, *desde, *desde);
  const auto hasta = Fecha::leer(ui_.FechaF->text().trimmed());
  if (!hasta) return mal(kTxFechaNoValida, *ui_.FechaF);
  if (*hasta <= *desde) return mal(kTxIntervaloNoValido, *ui_.FechaF);
  return Periodo{tipo, *desde, *hasta};
}

// Sales that the larger periods would lose leave them only when somebody says so.
bool EditIntvVentana::aceptaQueSalga(const Periodo& p) {
  if (nuevo_) return true;
  const auto salen = p_.saldriaDe(link_, p.tipo, p.desde, p.hasta);
  if (!haIdoBien(salen)) return false;
  return salen->empty() ||
         ventanas::MyMsgBox::Decide(
             this, contexto().textos, t(kTxSaldranDe).arg(TextoPeriodos(*salen)),
             ventanas::kAceptoCancelo | ventanas::kExclamacion | ventanas::kPrudente);
}

void EditIntvVentana::salvar() {
  const auto p = leerPeriodo();
  // What is written is meant, also where its button wasn't pressed.
  if (!p || (hayEscrito() && !anadir()) || !aceptaQueSalga(*p)) return;
  const auto link = guardarConManuales(contexto().db, p_, nuevo_ ? 0 : link_, *p, entradas_);
  if (!link) {
    const Error& e = link.error();
    if (!nuevo_) return decirFallo(e.texto);
    if (e.clase == Fallo::Duplicado) return decirFallo(t(kTxYaExiste).arg(TextoPeriodo(*p)));
    return decirFallo(t(kTxErrorAlCrear), e.texto);
  }
  entregar(*link);
}

// Among the totals keyed in by hand Return adds what is written.
void EditIntvVentana::keyPressEvent(QKeyEvent* evento) {
  const bool intro = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
  const QWidget* foco = focusWidget();
  if (!intro || !ui_.marcoManual->isAncestorOf(foco) || qobject_cast<const QPushButton*>(foco))
    return Ventana::keyPressEvent(evento);
  evento->accept();
  anadir();
}

bool EditIntvVentana::QueryUnload() {
  return (!entradas_.empty() || hayEscrito()) &&
         !ventanas::MyMsgBox::Decide(this, contexto().textos, t(kTxDesecharManuales),
                                     ventanas::kAceptoCancelo | ventanas::kExclamacion);
}

}  // namespace tarvo::totals
