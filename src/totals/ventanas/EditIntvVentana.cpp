// The period itself. Totals keyed in by hand are in EditIntvManual.cpp.
#include "totals/ventanas/EditIntvVentana.h"

#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/MyMsgBox.h"
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
    : FichaDe(contexto, nombre), p_(periodos) {
  ui_.setupUi(cuerpo());
  montar();
  montarManuales();
  ponerFrase(0, false);
  acabar(cuerpo()->size(), {.acepto = u"SalvBoton"_s, .cancelo = u"Tiro"_s});
}

void EditIntvVentana::montar() {
  ventanas::llenar(*ui_.LstTipo, tiposDePeriodo());
  enlazarCampo(*ui_.LstTipo, r.tipo);
  enlazarCampo(*ui_.Fecha1, momento(r.desde, false));
  hasta_ = &enlazarCampo(*ui_.FechaF, momento(r.hasta, true));
  ano_ = &enlazarCampo(*ui_.spAno, numero(r.ano, kPrimerAno, kUltimoAno));
  ventanas::llenar(*ui_.LstMes, mesesDelAno());
  connect(ui_.LstTipo, &QComboBox::activated, this, &EditIntvVentana::tipoCambiado);
  connect(ui_.LstMes, &QComboBox::activated, this, &EditIntvVentana::mesCambiado);
  connect(ano_, &ventanas::Campo::cambiado, this, &EditIntvVentana::mesCambiado);
  for (QLineEdit* campo : {ui_.Fecha1, ui_.FechaF})
    connect(campo, &QLineEdit::textEdited, this, &EditIntvVentana::pintarLimites);
}

// A date, with its time of day if the kind of period has one.
ventanas::Modo EditIntvVentana::momento(Fecha& donde, bool siempreConHora) const {
  return {.ver = [this, &donde,
                  siempreConHora] { return enCampo(siempreConHora ? kOtros : r.tipo, donde); },
          .poner = [this, &donde](const QString& texto) -> Resultado<> {
            const auto f = Fecha::leer(texto.trimmed());
            if (!f) return fallo(Fallo::Formato, t(kTxFechaComo).arg(t(kTxFechaNoValida)));
            donde = *f;
            return {};
          },
          .deFecha = true};
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
  TARVO_INTENTAR(llenarLista(*ui_.LstGrupos, contexto(), contexto().nombres.grupos(), 4, 0));
  ui_.LstGrupos->setCurrentIndex(-1);
  TARVO_INTENTAR(llenarLista(*ui_.LstOper, contexto(), contexto().nombres.operadores(), 4, 0));
  ui_.LstOper->setCurrentIndex(-1);
  TARVO_INTENTAR(editar({p.tipo, p.desde, p.hasta, p.desde.qdate().year(), {}}));
  tipoCambiado();
  vaciarEntrada();
  deshacer_->olvidar();
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
    ui_.spAno->setText(QString::number(escrita->qdate().year()));
    ano_->marcar({});
  }
  // A disabled field isn't read.
  ui_.LstMes->setVisible(conMes);
  ui_.rotuloMes->setVisible(conMes);
  ui_.spAno->setVisible(conAno);
  ui_.spAno->setEnabled(conAno);
  ui_.rotuloAno->setVisible(conAno);
  ui_.Fecha1->setVisible(!conAno);
  ui_.rotulo1->setVisible(!conAno);
  ui_.FechaF->setVisible(tipo == kOtros);
  ui_.FechaF->setEnabled(tipo == kOtros);
  ui_.rotuloF->setVisible(tipo == kOtros);
  if (conAno) mesCambiado();
  pintarLimites();
}

// For a month or a year, sets the beginning to its first day. What isn't a year is refused when the
// sheet is read.
void EditIntvVentana::mesCambiado() {
  const int tipo = ui_.LstTipo->currentData().toInt();
  if (tipo != kMensual && tipo != kAnual) return;
  const int mes = tipo == kMensual ? ui_.LstMes->currentIndex() + 1 : 1;
  const int ano = ui_.spAno->text().trimmed().toInt();
  if (ano < kPrimerAno || ano > kUltimoAno) return ui_.limites->setText({});
  ui_.Fecha1->setText(Fecha::de(QDate(ano, mes, 1)).corta());
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

Periodo EditIntvVentana::periodo() const {
  return r.tipo == kOtros ? Periodo{r.tipo, r.desde, r.hasta}
                          : LimitesPeriodo(r.tipo, r.desde, r.desde);
}

std::vector<ventanas::Ficha::FaltaCampo> EditIntvVentana::comprobar() {
  if (r.tipo == kOtros && r.hasta <= r.desde) return {{hasta_, t(kTxIntervaloNoValido)}};
  return {};
}

// Asks before sales leave the larger periods that contain this one.
bool EditIntvVentana::aceptaQueSalga(const Periodo& p) {
  if (nuevo_) return true;
  const auto salen = p_.saldriaDe(link_, p.tipo, p.desde, p.hasta);
  if (!haIdoBien(salen)) return false;
  return salen->empty() ||
         ventanas::MyMsgBox::Decide(
             this, contexto().textos, t(kTxSaldranDe).arg(TextoPeriodos(*salen)),
             ventanas::kAceptoCancelo | ventanas::kExclamacion | ventanas::kPrudente);
}

// Numbers typed but not yet added count as added.
bool EditIntvVentana::conforme() {
  return (!renglon_.escrito() || anadir()) && aceptaQueSalga(periodo());
}

Resultado<> EditIntvVentana::aplicar() {
  const Periodo p = periodo();
  auto guardado = guardarConManuales(p_, nuevo_ ? 0 : link_, p, r.entradas);
  if (guardado) {
    guardado_ = *std::move(guardado);
    return {};
  }
  const Error& e = guardado.error();
  if (!nuevo_) return std::unexpected(e);
  if (e.clase == Fallo::Duplicado) return fallo(e.clase, t(kTxYaExiste).arg(TextoPeriodo(p)));
  return fallo(e.clase, t(kTxErrorAlCrear) + u". "_s + e.texto);
}

// Within the totals keyed in by hand, Return adds the numbers typed.
void EditIntvVentana::keyPressEvent(QKeyEvent* evento) {
  const bool intro = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
  const QWidget* foco = focusWidget();
  if (!intro || !ui_.marcoManual->isAncestorOf(foco) || qobject_cast<const QPushButton*>(foco))
    return Ventana::keyPressEvent(evento);
  evento->accept();
  anadir();
}

bool EditIntvVentana::QueryUnload() {
  if (r.entradas.empty() && !renglon_.escrito()) return FichaDe::QueryUnload();
  return !ventanas::MyMsgBox::Decide(this, contexto().textos, t(kTxDesecharManuales),
                                     ventanas::kAceptoCancelo | ventanas::kExclamacion);
}

}  // namespace tarvo::totals
