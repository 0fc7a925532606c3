#include "comm/exploracion/ventanas/WizInicio.h"

#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>

#include "comm/exploracion/Accesos.h"
#include "comm/exploracion/Resumen.h"
#include "comm/exploracion/ventanas/TextosExploracionVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/edicion/Ficha.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::exploracion {

using namespace Qt::StringLiterals;
using ventanas::FilaViva;

namespace {

constexpr int kPorAcceso = 100;  // steps of the progress bar for each access
constexpr int kLatidosPorCambio = 5;

bool algo(const Hallazgo& h) {
  return h.resultado >= ResultadoCanal::Modem;
}

// How much of an access is done, of kPorAcceso.
int parte(const Sondeo* s) {
  using Fase = Sondeo::Fase;
  if (!s) return 0;
  switch (s->fase()) {
    case Fase::Inicio:
    case Fase::Modem1:
      return 0;
    case Fase::Modem2:
    case Fase::ModemAT:
      return kPorAcceso / 20;
    case Fase::Vek:
      return kPorAcceso / 10 + s->sonda() * 2;
    case Fase::Nodal:
    case Fase::NodalEspera:
    case Fase::NodalRespuesta:
      return kPorAcceso / 2 + s->sonda() * 2;
    case Fase::Fin:
      break;
  }
  return kPorAcceso;
}

}  // namespace

Resultado<> WizInicio::entrar(const PuertaWizInicio&) {
  if (PasoWiz_ == Paso::Introduccion && !volviendo_) {
    llenarPuertos();
    ir(Paso::Introduccion);
  }
  return {};
}

// --- the pages

void WizInicio::ir(Paso paso) {
  PasoWiz_ = paso;
  const bool resultados = paso == Paso::Resultados || paso == Paso::Aplicado;
  const bool explorado = paso == Paso::Explorado, aplicado = paso == Paso::Aplicado;
  paginas_->setCurrentIndex(resultados ? 2 : paso == Paso::Introduccion ? 0 : 1);
  int siguiente = kTxSiguiente;
  if (paso == Paso::Resultados) siguiente = ventanas::kTxAplicar;
  if (aplicado) siguiente = ventanas::kTxCerrar;
  StartPoll_->setText(t(siguiente));
  StartPoll_->setEnabled(paso != Paso::Explorando && !volviendo_);
  Cancelar_->setVisible(!aplicado);
  Atras_->setVisible(explorado || paso == Paso::Resultados);
  Configurar_->setVisible(paso == Paso::Resultados);
  Parar_->setVisible(paso == Paso::Explorando);
  Parar_->setEnabled(true);
  avance_->setVisible(paso == Paso::Explorando);
  detalle_->setVisible(explorado);
  Resumen_->setVisible(explorado);
  Consecuencia_->setVisible(explorado);
  for (QWidget* w : {static_cast<QWidget*>(hallados_), static_cast<QWidget*>(anadir_),
                     static_cast<QWidget*>(sustituir_)})
    w->setVisible(!aplicado);
  hecho_->setVisible(aplicado);
  if (paso == Paso::Introduccion) decirOcupadas();
  if (aplicado) listarLoQueSeVa();
  QWidget* foco = paso == Paso::Explorando ? Parar_ : StartPoll_;
  if (foco->isEnabled()) foco->setFocus();
}

void WizInicio::StartPoll() {
  switch (PasoWiz_) {
    case Paso::Introduccion:
      return explorar();
    case Paso::Explorando:
      return;
    case Paso::Explorado:
      return mostrarResultados();
    case Paso::Resultados:
      return AplicarExploracion();
    case Paso::Aplicado:
      close();
  }
}

// Back to the first page; from there, and when all is done, out.
void WizInicio::Cancelar() {
  if (PasoWiz_ == Paso::Introduccion || PasoWiz_ == Paso::Aplicado) {
    close();
    return;
  }
  quitarPista();
  volviendo_ = PasoWiz_ == Paso::Explorando;
  if (volviendo_) exploracion_->parar();
  llenarPuertos();
  ir(Paso::Introduccion);
}

// One page back: what was found stays until something is explored again.
void WizInicio::atras() {
  quitarPista();
  if (PasoWiz_ != Paso::Resultados) return Cancelar();
  resumir();
  ir(Paso::Explorado);
  pintarAvance();
}

// What was typed and not explored, and what was found and not applied, would be lost.
bool WizInicio::QueryUnload() {
  const bool tecleado = !otros_->toPlainText().trimmed().isEmpty();
  return tecleado && PasoWiz_ != Paso::Aplicado && !ventanas::preguntarAbandono(*this);
}

void WizInicio::keyPressEvent(QKeyEvent* evento) {
  if (evento->key() != Qt::Key_Escape) return Ventana::keyPressEvent(evento);
  evento->accept();
  Cancelar();
}

// --- exploring

// Those that a person unchecked stay so.
void WizInicio::llenarPuertos() {
  QStringList fuera;
  for (int i = 0; i < listaPuertos_->count(); ++i)
    if (listaPuertos_->item(i)->checkState() == Qt::Unchecked)
      fuera << listaPuertos_->item(i)->text();
  listaPuertos_->clear();
  puertos_ = accesosDe(contexto().ajustes);
  for (const Acceso& a : puertos_) {
    auto* fila = new QListWidgetItem(exploracion::nombre(a, contexto().textos), listaPuertos_);
    fila->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    fila->setCheckState(fuera.contains(fila->text()) ? Qt::Unchecked : Qt::Checked);
  }
  if (listaPuertos_->count() > 0) listaPuertos_->setCurrentRow(0);
}

void WizInicio::decirOcupadas() {
  const auto canales = s_.motor.canales();
  ocupadas_->setVisible(
      std::ranges::any_of(canales, [](const motor::VistaCanal& c) { return c.TareaCanal >= 0; }));
}

// The checked ports, then what was typed; each once.
std::vector<Acceso> WizInicio::elegidos() const {
  std::vector<Acceso> todos;
  for (int i = 0; i < listaPuertos_->count(); ++i)
    if (listaPuertos_->item(i)->checkState() == Qt::Checked)
      todos.push_back(puertos_[static_cast<size_t>(i)]);
  for (const Acceso& a :
       conSusCanales(leerTexto(otros_->toPlainText()).accesos, contexto().ajustes))
    if (std::ranges::find(todos, claveDe(a), claveDe) == todos.end()) todos.push_back(a);
  return todos;
}

void WizInicio::explorar() {
  const auto leidos = leerTexto(otros_->toPlainText());
  const auto falta = [this](const QString& texto) {
    faltaOtros_->setText(texto);
    faltaOtros_->show();
    otros_->setFocus();
  };
  if (leidos.demasiados) return falta(contexto().textos(kTxDemasiadosAccesos, {kMaxAccesos}));
  if (!leidos.malos.empty()) return falta(t(kTxAccesosMalos).arg(leidos.malos.join(u", "_s)));
  accesos_ = elegidos();
  if (accesos_.empty()) return falta(t(kTxSinAccesos));
  hallazgos_.clear();
  parada_ = false;
  avance_->setRange(0, static_cast<int>(accesos_.size()) * kPorAcceso);
  std::vector<FilaViva> filas;
  filas.reserve(accesos_.size());
  for (size_t i = 0; i < accesos_.size(); ++i)
    filas.push_back({static_cast<qint64>(i),
                     {exploracion::nombre(accesos_[i], contexto().textos), kEspera, QString()}});
  lineas_->vivas().poner(std::move(filas));
  ir(Paso::Explorando);
  exploracion_->empezar(accesos_);
  pintarAvance();
}

void WizInicio::parar() {
  parada_ = true;
  Parar_->setEnabled(false);
  exploracion_->parar();
}

void WizInicio::hallado(const Hallazgo& h) {
  hallazgos_.push_back(h);
  pintarLinea(hallazgos_.size() - 1);
}

void WizInicio::pintarLinea(size_t cual) {
  if (cual >= accesos_.size()) return;
  const Hallazgo* h = cual < hallazgos_.size() ? &hallazgos_[cual] : nullptr;
  const int sinMas = PasoWiz_ == Paso::Explorando && !parada_ ? kEnMarcha : kEspera;
  const int estado = !h ? sinMas : algo(*h) ? kAlgo : kNada;
  lineas_->vivas().poner({static_cast<qint64>(cual),
                          {exploracion::nombre(accesos_[cual], contexto().textos), estado,
                           h ? queHay(*h, contexto().textos) : QString()}});
}

void WizInicio::acabada() {
  if (std::exchange(volviendo_, false)) {
    StartPoll_->setEnabled(true);
    return;
  }
  if (PasoWiz_ != Paso::Explorando) return;
  resumir();
  ir(Paso::Explorado);
  pintarAvance();
  verDetalle();
  if (!parada_) return;
  pintarLinea(hallazgos_.size());
  decirDuda(t(kTxExploracionParada));
}

// The whole result of the current line, which its cell may have no room for.
void WizInicio::verDetalle() {
  const int fila = std::max(lineas_->filaActual(), 0);
  const bool hay = fila < lineas_->filas();
  const QString que = hay ? lineas_->texto(fila, u"que") : QString();
  detalle_->setText(que.isEmpty() ? QString() : lineas_->texto(fila, u"acceso") + u": "_s + que);
}

QString WizInicio::loExplorado(int texto) const {
  return contexto().textos(texto, {hallazgos_.size(), accesos_.size()});
}

// Ten times a second: the progress, and the picture of what is being tried.
void WizInicio::latir() {
  ++latidos_;
  if (PasoWiz_ == Paso::Introduccion) decirOcupadas();
  if (PasoWiz_ == Paso::Explorando) pintarAvance();
}

void WizInicio::pintarAvance() {
  using Fase = Sondeo::Fase;
  const Acceso* acceso = PasoWiz_ == Paso::Explorando ? exploracion_->enCurso() : nullptr;
  const Sondeo* sondeo = acceso ? exploracion_->sondeo() : nullptr;
  const Fase fase = sondeo ? sondeo->fase() : Fase::Inicio;
  const bool modem = fase == Fase::Modem1 || fase == Fase::Modem2 || fase == Fase::ModemAT;
  const bool nodal =
      fase == Fase::Nodal || fase == Fase::NodalEspera || fase == Fase::NodalRespuesta;
  const bool encendida = latidos_ / kLatidosPorCambio % 2 == 0;
  const auto ver = [&](QLabel* imagen, bool suya) {
    imagen->setEnabled(suya || !acceso);
    imagen->setPixmap(suya && !encendida
                          ? QPixmap()
                          : ventanas::icono(imagen->objectName().mid(3)).pixmap(imagen->size()));
  };
  ver(imgModem_, modem);
  ver(imgVek_, fase == Fase::Vek);
  ver(imgNodal_, nodal);
  if (!acceso) {
    fase_->setText(loExplorado(cortada() ? kTxExploradoEnParte : kTxExplorado));
    return;
  }
  const QString nombre = exploracion::nombre(*acceso, contexto().textos);
  const int texto = modem               ? kTxBuscandoModem
                    : fase == Fase::Vek ? kTxBuscandoVek
                    : nodal             ? kTxBuscandoNodal
                                        : kTxAbriendo;
  fase_->setText(contexto().textos(texto, {nombre, sondeo ? sondeo->sonda() : 0, kUltimaSonda}));
  avance_->setValue(static_cast<int>(hallazgos_.size()) * kPorAcceso + parte(sondeo));
  pintarLinea(hallazgos_.size());
}

}  // namespace tarvo::exploracion
