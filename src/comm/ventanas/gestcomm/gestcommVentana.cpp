#include "comm/ventanas/gestcomm/gestcommVentana.h"

#include <QHBoxLayout>
#include <QTableView>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>

#include "comm/ventanas/Grupos.h"
#include "comm/ventanas/TextosCommVentanas.h"
#include "comm/ventanas/gestcomm/ModeloTareas.h"
#include "comm/ventanas/gestcomm/PanelesCanales.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::comm {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr int kRefrescoMs = 100;
constexpr int kMirarSesionMs = 500;
constexpr int kParpadeoMs = 500;
constexpr size_t kAcabadasMax = 500;  // ended tasks that remain visible

}  // namespace

gestcommVentana::gestcommVentana(Contexto& c, const QString& nombre, const Servicios& s)
    : Ventana(c, nombre),
      s_(s),
      escucha_(s.oido->tomar(s.enlaces, c.reloj)),
      refresco_(c.reloj.temporizador([this] { refrescar(); })),
      parpadeo_(c.reloj.temporizador([this] {
        if (!paneles_->parpadear()) parpadeo_->parar();
      })),
      mirarSesion_(c.reloj.temporizador([this] { ponerSesion(); })) {
  ui_.setupUi(cuerpo());
  mirarSesion_->cada(kMirarSesionMs);
  ui_.division->setStretchFactor(0, 1);
  ui_.division->setSizes({escalar(1040), PanelCanal::anchoPreferido() + escalar(kSeparacion)});
  paneles_ = new PanelesCanales(c.textos, this);
  ui_.zonaCanales->setWidget(paneles_);
  ui_.zonaCanales->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  ui_.zonaCanales->setFrameShape(QFrame::NoFrame);
  ui_.zonaCanales->setMinimumWidth(PanelCanal::anchoPreferido() + escalar(kSeparacion));
  ponerLetra(*ui_.LblModo, Letra::Secundaria);
  enlazar();
  ui_.s_espe->preparar(c, nombre, columnasTareas(c.textos));
  ui_.s_espe->vivas();
  ui_.s_espe->filtros()->addWidget(ui_.LblModo);
  ui_.s_espe->ponerVacia(t(kTxColaVacia));
  connect(ui_.s_espe, &Parrilla::actualCambiada, this, [this] {
    ponerModo();
    ponerProblema();
  });
  connect(&c.tema, &Tema::cambiado, this, [this] { ponerModo(); });
  conectarOrdenes();
  conectarSesion();
  s_.motor.observar(this);
}

gestcommVentana::~gestcommVentana() {
  s_.motor.dejarDeObservar(this);
}

Resultado<> gestcommVentana::entrar(const PuertaGestcomm& puerta) {
  terminarAlAcabar_ = false;  // it is in use again
  s_.motor.TerminaCuandoPuedas(false);
  ponerMenus();
  colaSucia_ = canalesSucios_ = true;
  refrescar();
  ui_.s_espe->setFocus();
  if (puerta.grupo > 0) irAGrupo(puerta.grupo);
  return {};
}

// Moves to the latest task of a group; if it has none, explains how to start one.
void gestcommVentana::irAGrupo(int grupo) {
  const auto tareas = visibles();
  const auto suya = std::ranges::find(tareas.rbegin(), tareas.rend(), grupo,
                                      [](const motor::VistaTarea& v) { return v.datos.Grupo; });
  if (suya != tareas.rend()) return ui_.s_espe->irA(ui_.s_espe->filaDe(suya->datos.Id));
  decirPista(contexto().textos(kTxGrupoSinTareas, {grupo}));
}

void gestcommVentana::changeEvent(QEvent* evento) {
  Ventana::changeEvent(evento);
  if (evento->type() == QEvent::StyleChange || evento->type() == QEvent::FontChange)
    luegoPalabras();
  if (evento->type() != QEvent::ActivationChange || !isActiveWindow()) return;
  ponerMenus();
  ponerSesion();
}

void gestcommVentana::resizeEvent(QResizeEvent* evento) {
  Ventana::resizeEvent(evento);
  ponerPalabras();
}

// Letters and fonts given when the window shows change the widths of the words.
void gestcommVentana::showEvent(QShowEvent* evento) {
  Ventana::showEvent(evento);
  luegoPalabras();
}

void gestcommVentana::luegoPalabras() {
  QMetaObject::invokeMethod(this, &gestcommVentana::ponerPalabras, Qt::QueuedConnection);
}

// The two least used commands of the bar show their words only where those of all have room.
void gestcommVentana::ponerPalabras() {
  const auto poner = [this](Qt::ToolButtonStyle como) {
    for (QAction* a : {ui_.TodoP, ui_.ReponP})
      qobject_cast<QToolButton*>(ui_.barra->widgetForAction(a))->setToolButtonStyle(como);
  };
  poner(Qt::ToolButtonTextBesideIcon);
  const QMargins m = ui_.todo->contentsMargins();
  if (ui_.barra->sizeHint().width() > cuerpo()->width() - m.left() - m.right())
    poner(Qt::ToolButtonIconOnly);
}

// --- notifications from the engine

void gestcommVentana::ensuciar() {
  if (!refresco_->activo()) refresco_->unaVez(kRefrescoMs);
}

void gestcommVentana::colaCambiada() {
  colaSucia_ = true;
  ensuciar();
}

// A task that has ended or was stopped remains visible, with its result, until the window is
// closed.
void gestcommVentana::tareaCambiada(int id) {
  sucias_.insert(id);
  if (auto tarea = s_.motor.tarea(id);
      tarea && (tarea->Estado == motor::kTerminado || tarea->Estado == motor::kDetenido)) {
    acabadas_.insert_or_assign(id, std::move(*tarea));
    if (acabadas_.size() > kAcabadasMax) acabadas_.erase(acabadas_.begin());
  }
  ensuciar();
}

void gestcommVentana::canalCambiado(int) {
  canalesSucios_ = true;
  ensuciar();
}

// A window opened only for these tasks is closed after them, unless there is something to report.
void gestcommVentana::acabado() {
  std::map<std::pair<int, TipoTarea>, bool> reparos;  // the latest of each group and kind counts
  for (const auto& [id, tarea] : acabadas_)
    reparos[{tarea.datos.Grupo, tarea.datos.Clase}] =
        !tarea.textoError.isEmpty() || tarea.Estado == motor::kDetenido;
  if (std::ranges::any_of(reparos, [](const auto& r) { return r.second; })) return;
  QMetaObject::invokeMethod(this, [this] { descargar(); }, Qt::QueuedConnection);
}

void gestcommVentana::refrescar() {
  const auto sucias = std::exchange(sucias_, {});
  const bool cola = std::exchange(colaSucia_, false);
  if (cola) {
    ponerCola();
  } else {
    for (const int id : sucias)
      if (const auto tarea = s_.motor.tarea(id)) ponerFila(*tarea);
  }
  if (std::exchange(canalesSucios_, false)) ponerCanales();
  if (cola) ponerModo();
  if (cola || !sucias.empty()) {
    ponerProblema();
    ponerOrdenes();
  }
  ponerSesion();
}

void gestcommVentana::ponerFila(const motor::VistaTarea& tarea) {
  ui_.s_espe->vivas().poner(
      filaTarea(tarea, s_.repertorio.de(tarea.datos.Clase), contexto().textos));
}

// In the order of their numbers.
std::vector<motor::VistaTarea> gestcommVentana::visibles() const {
  auto tareas = s_.motor.tareas();
  for (const auto& [id, tarea] : acabadas_)
    if (!s_.motor.tarea(id)) tareas.push_back(tarea);
  std::ranges::sort(tareas, {}, [](const motor::VistaTarea& v) { return v.datos.Id; });
  return tareas;
}

std::optional<motor::VistaTarea> gestcommVentana::tareaVista(int id) const {
  const auto it = acabadas_.find(id);
  return it != acabadas_.end() ? std::optional(it->second) : s_.motor.tarea(id);
}

void gestcommVentana::ponerCola() {
  std::vector<FilaViva> filas;
  for (const motor::VistaTarea& tarea : visibles())
    filas.push_back(filaTarea(tarea, s_.repertorio.de(tarea.datos.Clase), contexto().textos));
  const int ultima = filas.empty() ? 0 : static_cast<int>(filas.back().clave);
  ui_.s_espe->vivas().poner(std::move(filas));
  if (ultima <= ultimaVista_) return;
  ultimaVista_ = ultima;
  if (s_.motor.ModoAutomatico() || ui_.s_espe->filaActual() < 0)
    ui_.s_espe->irA(ui_.s_espe->filaDe(ultima));
}

void gestcommVentana::ponerCanales() {
  paneles_->mostrar(s_.motor.canales(), canalElegido());
  for (int c = 0; c < paneles_->cuantos(); ++c)
    if (paneles_->panel(c)->parpadea() && !parpadeo_->activo()) parpadeo_->cada(kParpadeoMs);
}

// The channel of the selected task, in manual mode.
int gestcommVentana::canalElegido() const {
  const int fila = ui_.s_espe->filaActual();
  if (s_.motor.ModoAutomatico() || fila < 0) return -1;
  const auto tarea = s_.motor.tarea(static_cast<int>(ui_.s_espe->clave(fila)));
  if (!tarea || tarea->Canal < 0) return -1;
  const auto canales = s_.motor.canales();
  const auto c = static_cast<size_t>(tarea->Canal);
  return canales[c].TareaCanal == tarea->datos.Id ? tarea->Canal : -1;
}

// Shows the problem of the selected task in full, since its cell may be too narrow.
void gestcommVentana::ponerProblema() {
  const int fila = ui_.s_espe->filaActual();
  const auto tarea =
      fila < 0 ? std::nullopt : tareaVista(static_cast<int>(ui_.s_espe->clave(fila)));
  const QString problema = tarea ? textoProblema(*tarea, contexto().textos) : QString();
  ui_.LblProblema->setText(problema.isEmpty()
                               ? QString()
                               : t(kTxProblemaDeTarea).arg(Ceros(tarea->datos.Id, 3), problema));
  ui_.LblProblema->setHidden(problema.isEmpty());
}

void gestcommVentana::ponerOrdenes() {
  ui_.TodoP->setEnabled(s_.motor.hayReintentables());
  ui_.ReponP->setEnabled(s_.motor.hayQuitadas());
}

// In manual mode the selected task is highlighted in green.
void gestcommVentana::ponerModo() {
  const bool automatico = s_.motor.ModoAutomatico();
  const int porQueNo = ui_.s_espe->filas() == 0 ? kTxColaVacia : kTxModoAutomatico;
  for (QAction* a : {ui_.RunP, ui_.PauseP, ui_.StopP, ui_.TrashP, ui_.Diagn, ui_.AutoP}) {
    a->setEnabled(!automatico);
    a->setProperty(kPorQueNo, t(porQueNo));
  }
  ui_.ManuP->setEnabled(automatico && !s_.motor.ModoFijado());
  ui_.AutoP->setProperty(kPorQueNo, t(kTxModoAutomatico));
  ui_.ManuP->setProperty(kPorQueNo, t(automatico ? kTxModoFijado : kTxModoManual));
  ui_.LblModo->setText(t(automatico ? kTxModoAutomatico : kTxModoManual));
  const QString hoja =
      automatico ? QString()
                 : u"QTableView { selection-background-color: %1; selection-color: %2; }"_s.arg(
                       colorDe(Tinte::FondoBien).name(), colorDe(Tinte::Texto).name());
  if (ui_.s_espe->vista()->styleSheet() != hoja) ui_.s_espe->vista()->setStyleSheet(hoja);
  ponerCanales();
}

void gestcommVentana::ponerMenus() {
  const auto tipos = s_.grupos.tipos();
  if (!haIdoBien(tipos)) return;
  for (const EntradaMenu& e : entradasMenu())
    if (auto* a = cuerpo()->findChild<QAction*>(QString::fromUtf16(e.nombre)))
      habilitarEntrada(*a, s_.repertorio.de(e.clase), *tipos, contexto());
}

}  // namespace tarvo::comm
