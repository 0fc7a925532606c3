#include "totals/ventanas/ImpTotVentana.h"

#include <QDir>
#include <QFileDialog>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/Retenida.h"
#include "core/ventanas/marco/Tira.h"
#include "core/ventanas/marco/TiraTrabajo.h"
#include "totals/libros/SinArticulos.h"
#include "totals/ventanas/ComunTotales.h"
#include "totals/ventanas/TextosTotalesVentanas.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

enum EstadoImport {
  kSinFichero = 0,
  kListo = 1,
  kLeyendo = 2,
  kParando = 3,
  kInterrumpido = 4,
  kRealizado = 5,
  kMalasLineas = 6,
  kMalPeriodo = 7,
  kBorrando = 8,
};

int textoEstado(int estado) {
  switch (estado) {
    case kListo:
      return kTxListo;
    case kLeyendo:
    case kParando:
      return ventanas::kTxEnProcesoDeLectura;
    case kInterrumpido:
      return kTxInterrumpido;
    case kRealizado:
      return kTxImportado;
    case kMalasLineas:
      return kTxLineasMalas;
    case kMalPeriodo:
      return kTxPeriodoMalo;
    case kBorrando:
      return kTxBorrandoExistente;
    default:
      return kTxSeleccioneFichero;
  }
}

}  // namespace

ImpTotVentana::ImpTotVentana(ventanas::Contexto& contexto, const QString& nombre,
                             Periodos& periodos)
    : Ventana(contexto, nombre), p_(periodos), motor_(periodos) {
  ui_.setupUi(cuerpo());
  enlazar();
  montar();
}

void ImpTotVentana::montar() {
  ui_.otraCarpeta->setIcon(ventanas::icono(u"abrir"_s));
  ui_.BorrPrevio->setChecked(true);
  connect(ui_.LstFich, &QListWidget::itemActivated, this, &ImpTotVentana::abrir);
  connect(ui_.otraCarpeta, &QPushButton::clicked, this, [this] {
    const ventanas::Retenida mientras(this);
    const QString otra = QFileDialog::getExistingDirectory(this, windowTitle(), carpeta_);
    if (!otra.isEmpty()) ponerCarpeta(otra);
  });
  connect(ui_.Haz, &QPushButton::clicked, this, [this] { Haz(false); });
  connect(ui_.hazTodos, &QPushButton::clicked, this, [this] { Haz(true); });
  connect(ui_.Alto, &QPushButton::clicked, this, &ImpTotVentana::Alto);
  connect(ui_.Cerrar, &QPushButton::clicked, this, &ImpTotVentana::rechazar);
}

Resultado<> ImpTotVentana::entrar(const PuertaImpTot& puerta) {
  if (trabajo().enMarcha()) return {};
  ponerCarpeta(puerta.carpeta.isEmpty() ? contexto().ajustes.HomeDir : puerta.carpeta);
  ponerEstado(kSinFichero);
  return {};
}

void ImpTotVentana::ponerCarpeta(const QString& carpeta) {
  carpeta_ = carpeta;
  ui_.carpeta->setText(QDir::toNativeSeparators(carpeta));
  ui_.LstFich->clear();
  ui_.LstFich->addItems(QDir(carpeta).entryList({u"*.EXP"_s, u"*.exp"_s}, QDir::Files, QDir::Name));
  if (ui_.LstFich->count() > 0) ui_.LstFich->setCurrentRow(0);
  decirSiEstaVacia();
}

void ImpTotVentana::decirSiEstaVacia() {
  tira().quitar();
  if (ui_.LstFich->count() == 0) decirPista(t(kTxSinFicherosExp));
}

void ImpTotVentana::ponerEstado(int estado) {
  estado_ = estado;
  const bool elegir = estado == kSinFichero;
  ui_.mensaje->setText(t(textoEstado(estado)));
  ui_.LstFich->setEnabled(elegir);
  ui_.otraCarpeta->setEnabled(elegir);
  const bool enCurso = estado == kLeyendo || estado == kParando || estado == kBorrando;
  ui_.Haz->setEnabled(!enCurso && !elegir);
  ui_.Haz->setText(t(estado == kListo ? int{kTxLanzar} : int{ventanas::kTxOtroFichero}));
  ui_.hazTodos->setEnabled(estado == kListo);
  ui_.Alto->setEnabled(estado == kListo || enCurso);
  if (elegir) {
    for (QLabel* l : {ui_.LbCom, ui_.LbFecha, ui_.LbTipo, ui_.existe, ui_.Conta}) l->clear();
    fichero_.reset();
    bloque_.reset();
    decirSiEstaVacia();  // the strip referred to another file
    ui_.LstFich->setFocus();
  } else if (estado == kListo) {
    ui_.Haz->setFocus();
  }
}

void ImpTotVentana::abrir() {
  if (!ui_.LstFich->currentItem()) return;
  auto f = Importacion::abrir(motor_, carpeta_ + u'/' + ui_.LstFich->currentItem()->text());
  if (!haIdoBien(f)) return;
  fichero_ = std::move(*f);
  hechos_ = 0;
  lineas_ = 0;
  supuestas_ = 0;
  faltas_.clear();
  leerSiguiente();
}

void ImpTotVentana::leerSiguiente() {
  auto b = fichero_->siguiente();
  if (!haIdoBien(b)) return ponerEstado(kMalasLineas);
  bloque_ = std::move(*b);
  if (bloque_) return mostrarBloque(), ponerEstado(kListo);
  ponerEstado(kRealizado);
  decirBien(t(kTxImportado) + u": "_s + t(kTxNPeriodos, hechos_));
}

void ImpTotVentana::mostrarBloque() {
  const Periodo& p = bloque_->periodo;
  ui_.LbCom->setText(bloque_->comentario);
  QString fecha = FormatoPeriodo(p.tipo, p.desde);
  if (p.tipo == kOtros) fecha += u"  "_s + FormatoPeriodo(p.tipo, p.hasta);
  ui_.LbFecha->setText(fecha);
  ui_.LbTipo->setText(NombreTipoPeriodo(p.tipo));
  ui_.existe->setText(t(bloque_->existente ? kTxEsePeriodoExiste : kTxEsePeriodoEsNuevo));
}

// Imports one block and reads the header of the next. A block is one step, so its phases are
// painted at once.
Resultado<> ImpTotVentana::incorporarUno() {
  const auto fase = [this](Importacion::Fase f) {
    ponerEstado(f == Importacion::Fase::Borrando ? kBorrando : kLeyendo);
    ui_.mensaje->repaint();
  };
  TARVO_TOMAR(const auto hecho,
              fichero_->incorporar(
                  ui_.BorrPrevio->isChecked() ? SiExiste::Borrarlo : SiExiste::Acumularlo, fase));
  ++hechos_;
  lineas_ += hecho.lineas;
  supuestas_ += hecho.supuestas;
  TARVO_TOMAR(const auto ausentes, decirAusentes(p_, hecho.link));
  if (!ausentes.isEmpty()) faltas_ << TextoPeriodo(hecho.periodo).simplified() + u": "_s + ausentes;
  contar();
  TARVO_TOMAR(auto b, fichero_->siguiente());
  bloque_ = std::move(b);
  if (bloque_) mostrarBloque();
  return {};
}

// The strip tells of a failure or a stop, so what was read doubtfully is here as well.
void ImpTotVentana::contar() {
  QString texto = lineas_ > 0 ? t(kTxNTotales, static_cast<int>(lineas_)) : t(kTxSinTotales);
  if (supuestas_ > 0) texto += u". "_s + t(kTxLeidasComoDeOtro, supuestas_);
  ui_.Conta->setText(texto);
}

// Neither a replaced period nor a sum comes back, and a file that was imported before would be
// counted twice.
bool ImpTotVentana::consiente(bool todos) {
  using namespace ventanas;
  const bool borra = ui_.BorrPrevio->isChecked();
  if (!bloque_->existente && !(todos && borra)) return true;
  const QString pregunta =
      todos ? t(borra ? kTxSustituyeTodos : kTxSumaATodos)
            : t(borra ? kTxSustituyePeriodo : kTxSumaAPeriodo).arg(TextoPeriodo(bloque_->periodo));
  return MyMsgBox::Decide(this, contexto().textos, pregunta,
                          kAceptoCancelo | kExclamacion | kPrudente);
}

// All blocks go on to one that a question hasn't covered.
bool ImpTotVentana::sigue(bool consentido) const {
  return bloque_ && (consentido || !bloque_->existente || ui_.BorrPrevio->isChecked());
}

void ImpTotVentana::Haz(bool todos) {
  if (estado_ != kListo) return ponerEstado(kSinFichero);
  if (!consiente(todos)) return;
  ponerEstado(kLeyendo);
  ventanas::trabajar(
      *this, nullptr,
      {.que = t(kTxImportando),
       .total = fichero_->tamano(),
       .paso = [this](qint64) { return incorporarUno(); },
       .acabar = [this](const ventanas::Faena::Fin& fin) { acabar(fin); },
       .parado = [this] { return t(kTxInterrumpido); },
       .hasta = [this] { return fichero_->leidos(); },
       .sigue = [this, todos,
                 existe = bloque_->existente.has_value()] { return todos && sigue(existe); }});
}

void ImpTotVentana::acabar(const ventanas::Faena::Fin& fin) {
  if (fin.error)
    ponerEstado(fin.error->clase == Fallo::Formato ? kMalasLineas : kMalPeriodo);
  else if (fin.parado)
    ponerEstado(kInterrumpido);
  else
    ponerEstado(bloque_ ? kListo : kRealizado);
  if (fin.error || fin.parado) return;
  if (supuestas_ > 0)
    decirDuda(t(kTxLeidasComoDeOtro, supuestas_),
              (QStringList(t(kTxSiEranNuestras)) + faltas_).join(u'\n'));
  else if (!bloque_)
    decirImportado();
}

// A period that came back without some of its groups foots all the same.
void ImpTotVentana::decirImportado() {
  const QString bien = t(kTxImportado) + u": "_s + t(kTxNPeriodos, hechos_);
  if (faltas_.isEmpty()) return decirBien(bien);
  decirDuda(bien + u". "_s + faltas_.front(), faltas_.mid(1).join(u'\n'));
}

void ImpTotVentana::Alto() {
  if (!trabajo().enMarcha()) return ponerEstado(kSinFichero);
  ponerEstado(kParando);
  trabajo().parar();
}

}  // namespace tarvo::totals
