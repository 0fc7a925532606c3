// The operator's commands, the menus' commands, and the closing of the window.
#include <QTableView>

#include "comm/ventanas/Grupos.h"
#include "comm/ventanas/Pendientes.h"
#include "comm/ventanas/TextosCommVentanas.h"
#include "comm/ventanas/gestcomm/gestcommVentana.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/Tira.h"
#include "core/ventanas/marco/Ventanas.h"
#include "core/ventanas/parrilla/Parrilla.h"
#include "totals/ventanas/Puertas.h"

namespace tarvo::comm {

using namespace Qt::StringLiterals;
using namespace ventanas;
using motor::gestcomm;

void gestcommVentana::conectarOrdenes() {
  const std::pair<QAction*, const char16_t*> imagenes[] = {
      {ui_.RunP, u"ejecutar"},     {ui_.PauseP, u"pausa"},         {ui_.StopP, u"parar"},
      {ui_.TrashP, u"borrar"},     {ui_.Diagn, u"informacion"},    {ui_.AutoP, u"automatico"},
      {ui_.TodoP, u"refrescar"},   {ui_.ReponP, u"deshacer"},      {ui_.ManuP, u"operador"},
      {ui_.BotonTramas, u"linea"}, {ui_.BotonEstado, u"articulo"}, {ui_.MnAbrSs, u"sesionAbierta"},
      {ui_.MnCerSs, u"sesion"},    {ui_.MnCanSs, u"cerrar"}};
  const std::pair<QAction*, QKeySequence> teclas[] = {{ui_.RunP, Qt::Key_F6},
                                                      {ui_.PauseP, Qt::Key_F7},
                                                      {ui_.StopP, Qt::Key_F8},
                                                      {ui_.TrashP, Qt::Key_Delete},
                                                      {ui_.Diagn, Qt::Key_F9},
                                                      {ui_.TodoP, Qt::CTRL | Qt::Key_R},
                                                      {ui_.ReponP, QKeySequence::Undo},
                                                      {ui_.AutoP, Qt::CTRL | Qt::Key_U},
                                                      {ui_.ManuP, Qt::CTRL | Qt::SHIFT | Qt::Key_U},
                                                      {ui_.BotonTramas, Qt::CTRL | Qt::Key_T},
                                                      {ui_.BotonEstado, Qt::Key_F12}};
  for (const auto& [accion, tecla] : teclas) accion->setShortcut(tecla);
  for (const auto& [accion, imagen] : imagenes) accion->setIcon(icono(QString::fromUtf16(imagen)));
  ui_.btTramas->setDefaultAction(ui_.BotonTramas);
  ui_.btEstado->setDefaultAction(ui_.BotonEstado);
  ui_.s_espe->ponerAcciones({ui_.RunP, ui_.PauseP, ui_.StopP, ui_.TrashP, ui_.Diagn, ui_.TodoP,
                             ui_.ReponP, ui_.BotonTramas, ui_.BotonEstado});
  ui_.TodoP->setProperty(kPorQueNo, t(kTxNadaQueReintentar));
  ui_.ReponP->setProperty(kPorQueNo, t(kTxNadaQueReponer));
  const auto al = [this](QAction* a, const auto& hacer) { alDar(a, hacer); };
  al(ui_.RunP, [this] {
    ordenar({motor::kEnEspera, motor::kAperturaFallida, motor::kTransfiriendo, motor::kInterrumpido,
             motor::kRetenido},
            &gestcomm::AvanzarTarea);
  });
  al(ui_.PauseP, [this] { ordenar({motor::kTransfiriendo}, &gestcomm::PausarTarea); });
  al(ui_.StopP, [this] {
    ordenar({motor::kAbriendo, motor::kTransfiriendo, motor::kRetenido}, &gestcomm::DetenerTarea);
  });
  al(ui_.TrashP, [this] {
    ordenar({motor::kEnEspera, motor::kAperturaFallida, motor::kTerminado, motor::kRechazado,
             motor::kInterrumpido, motor::kDetenido},
            &gestcomm::EliminarTarea);
  });
  al(ui_.TodoP, [this] { reintentarTodo(); });
  al(ui_.ReponP, [this] { reponer(); });
  al(ui_.Diagn, [this] { diagnosticar(); });
  al(ui_.AutoP, [this] { cambiarModo(true); });
  al(ui_.ManuP, [this] { cambiarModo(false); });
  al(ui_.BotonTramas, [this] { verTramas(); });
  al(ui_.BotonEstado, [this] { verEstado(); });
  connect(ui_.s_espe, &Parrilla::activada, this, [this] { diagnosticar(); });
  connect(ui_.s_espe, &Parrilla::exportado, this, [this](const QString& r) { decirBien(r); });
  for (const EntradaMenu& e : entradasMenu())
    if (auto* a = cuerpo()->findChild<QAction*>(QString::fromUtf16(e.nombre)))
      al(a, [this, &e] { pedirGrupos(e); });
  for (QMenu* m : {ui_.TxCosa, ui_.RxCosa})
    connect(m, &QMenu::aboutToShow, this, [this] { ponerMenus(); });
}

// The id of the current row; 0 if there is none, which is reported.
int gestcommVentana::tareaElegida() {
  const int fila = ui_.s_espe->filaActual();
  if (fila >= 0) return static_cast<int>(ui_.s_espe->clave(fila));
  decirPista(t(ui_.s_espe->filas() == 0 ? kTxColaVacia : kTxSinSeleccion));
  return 0;
}

// Those of the selected rows, or else of the current one. If that is the only one and out of sight,
// only scrolls to it and says so, so that no command goes to an invisible task.
std::vector<int> gestcommVentana::tareasElegidas() {
  if (tareaElegida() == 0) return {};
  const auto filas = ui_.s_espe->filasParaActuar();
  const QTableView* vista = ui_.s_espe->vista();
  const QRect unica = vista->visualRect(vista->currentIndex().siblingAtRow(filas.front()));
  if (filas.size() == 1 && !vista->viewport()->rect().intersects(unica)) {
    ui_.s_espe->irA(filas.front());
    decirPista(t(kTxNoSeVeia));
    return {};
  }
  std::vector<int> ids;
  ids.reserve(filas.size());
  for (const int fila : filas) ids.push_back(static_cast<int>(ui_.s_espe->clave(fila)));
  return ids;
}

// What became of a command to some tasks.
struct gestcommVentana::Balance {
  int pedidas = 0;
  std::vector<int> fuera = {};     // states of those that don't admit it
  std::vector<int> quitadas = {};  // taken out of the queue
  int esperan = 0;                 // told to go on, and waiting for a channel or for another task
  int noVan = 0;                   // told to go on, and failed at once
  bool paradas = false;  // of those told to go on some are stopped, and still in the queue
  bool idas = false;     // or have left it
};

void gestcommVentana::ordenar(const std::set<int>& estados, void (gestcomm::*orden)(int)) {
  const auto ids = tareasElegidas();
  Balance b{.pedidas = static_cast<int>(ids.size())};
  for (const int id : ids) {
    const auto enCola = s_.motor.tarea(id);
    const auto tarea = enCola ? enCola : tareaVista(id);
    const int estado = tarea ? tarea->Estado : int{motor::kTerminado};
    const bool vale = enCola ? estados.contains(estado) : orden == &gestcomm::EliminarTarea;
    if (!vale) b.fuera.push_back(estado);
    (s_.motor.*orden)(id);
    if (orden == &gestcomm::AvanzarTarea) {
      if (vale) contarSeguida(id, b);
      if (estado == motor::kDetenido) (enCola ? b.paradas : b.idas) = true;
    }
    if (orden != &gestcomm::EliminarTarea || s_.motor.tarea(id)) continue;
    // A task that had ended was only still displayed.
    acabadas_.erase(id);
    if (enCola && estado != motor::kTerminado) b.quitadas.push_back(id);
    colaCambiada();
  }
  if (!b.quitadas.empty()) tandas_.push_back(b.quitadas.size());
  decirOrden(b);
}

void gestcommVentana::contarSeguida(int id, Balance& b) const {
  const auto tarea = s_.motor.tarea(id);
  if (!tarea) return;
  if (tarea->Estado == motor::kEnEspera && tarea->Error == 0) ++b.esperan;
  if ((tarea->Estado == motor::kEnEspera && tarea->Error != 0) ||
      tarea->Estado == motor::kAperturaFallida || tarea->Estado == motor::kRechazado)
    ++b.noVan;
}

// Of those that don't admit the command; a stopped one is started again in another way.
QString gestcommVentana::porQueNo(const Balance& b) const {
  const QString consejo = b.paradas ? t(kTxParadaEnCola) : b.idas ? t(kTxParadaFuera) : QString();
  if (b.pedidas == 1)
    return !consejo.isEmpty()
               ? consejo
               : t(kTxNoSePuede).arg(motor::TextoEstado(b.fuera.front(), contexto().textos));
  const QString varias = Plural(t(kTxNoSePuedeVarias), static_cast<int>(b.fuera.size()));
  return consejo.isEmpty() ? varias : varias + u' ' + consejo;
}

void gestcommVentana::decirOrden(const Balance& b) {
  QStringList dicho;
  if (!b.quitadas.empty())
    dicho << (b.quitadas.size() == 1 ? t(kTxTareaQuitada).arg(Ceros(b.quitadas.front(), 3))
                                     : t(kTxTareasQuitadas).arg(b.quitadas.size()));
  const bool faltan = !b.fuera.empty() || b.esperan + b.noVan > 0;
  const int hechas = b.pedidas - static_cast<int>(b.fuera.size()) - b.esperan - b.noVan;
  if (faltan && hechas > 0 && b.quitadas.empty()) dicho << Plural(t(kTxOrdenDada), hechas);
  if (b.esperan > 0) dicho << Plural(t(kTxSiguenEsperando), b.esperan);
  if (b.noVan > 0) dicho << Plural(t(kTxNoHanEmpezado), b.noVan);
  if (!b.fuera.empty()) dicho << porQueNo(b);
  if (dicho.isEmpty()) return;
  faltan ? decirPista(dicho.join(u' ')) : decirBien(dicho.join(u' '));
}

void gestcommVentana::reintentarTodo() {
  const int cuantas = s_.motor.ReintentarTodo();
  decirBien(Plural(t(kTxReintentadas), cuantas));
  colaCambiada();
}

// What was removed together comes back together.
void gestcommVentana::reponer() {
  size_t cuantas = 1;
  if (!tandas_.empty()) {
    cuantas = tandas_.back();
    tandas_.pop_back();
  }
  int vuelven = 0;
  QStringList dicho;
  std::set<int> antes;
  for (const motor::VistaTarea& v : s_.motor.tareas()) antes.insert(v.datos.Id);
  for (size_t i = 0; i < cuantas && s_.motor.hayQuitadas(); ++i) {
    const auto r = s_.motor.ReponerTarea();
    if (r == motor::Pedida::EnCola)
      ++vuelven;
    else
      dicho << t(r == motor::Pedida::YaUsada ? kTxNoRepuestaSesion : kTxNoRepuesta);
  }
  dicho.removeDuplicates();
  const bool todas = dicho.isEmpty();
  if (vuelven > 0)
    dicho.prepend(vuelven == 1 ? t(kTxTareaRepuesta) : t(kTxTareasRepuestas).arg(vuelven));
  todas ? decirBien(dicho.join(u' ')) : decirPista(dicho.join(u' '));
  colaCambiada();
  refrescar();
  elegirNuevas(antes);
}

// The tasks that weren't there become the selected ones, the first of them the current one.
void gestcommVentana::elegirNuevas(const std::set<int>& antes) {
  std::vector<ModeloParrilla::Clave> nuevas;
  for (const motor::VistaTarea& v : s_.motor.tareas())
    if (!antes.contains(v.datos.Id)) nuevas.emplace_back(v.datos.Id);
  if (!nuevas.empty()) ui_.s_espe->elegir(nuevas);
}

// The buttons are updated at once: the next key may be one of theirs.
void gestcommVentana::cambiarModo(bool automatico) {
  s_.motor.CambioAModo(automatico);
  if (s_.motor.ModoAutomatico() != automatico) decirPista(t(kTxModoFijado));
  ponerModo();
}

void gestcommVentana::diagnosticar() {
  if (const int id = tareaElegida(); id != 0)
    static_cast<void>(preguntar(PuertaDiagnostico{.tarea = id, .acabada = tareaVista(id)}));
}

// Opens the state of the articles for the selected task's group.
void gestcommVentana::verEstado() {
  PuertaEstadoEnvio puerta;
  if (const int fila = ui_.s_espe->filaActual(); fila >= 0)
    if (const auto tarea = tareaVista(static_cast<int>(ui_.s_espe->clave(fila))))
      puerta.grupo = tarea->datos.Grupo;
  abrir(puerta);
}

void gestcommVentana::verTramas() {
  const int fila = ui_.s_espe->filaActual();
  PuertaVerTramas puerta;
  if (fila >= 0) {
    puerta.tarea = static_cast<int>(ui_.s_espe->clave(fila));
    const auto tarea = tareaVista(puerta.tarea);
    if (tarea && tarea->Canal >= 0) puerta.canal = tarea->Canal;
  }
  abrir(puerta);
}

// With a single group and nothing else to ask, no dialog is shown.
void gestcommVentana::pedirGrupos(const EntradaMenu& e) {
  const motor::ClaseTarea* clase = s_.repertorio.de(e.clase);
  if (!clase) return;
  const auto grupos = s_.grupos.deTipos(clase->tipos);
  if (!haIdoBien(grupos)) return;
  const bool pideMas = e.modo == kModoBalanza || e.modo == kModoTxPLU || e.modo == kModoRxPLU ||
                       (e.modo == kModoCero && contexto().ajustes.EsEspanol());
  if (grupos->size() == 1 && !pideMas) {
    const std::vector<int> suyo{grupos->front().codigo};
    if (consientePerder(*this, s_.grupos, s_.sesion, e.clase, suyo))
      encolarGrupos(*this, s_.motor, suyo, {.clase = e.clase});
    return;
  }
  static_cast<void>(e.modo == kModoTxPLU   ? preguntar(PuertaTxPLUdlg{e.clase})
                    : e.modo == kModoRxPLU ? preguntar(PuertaRxPLUDlg{e.clase})
                                           : preguntar(PuertaGrpDlg{e.clase, e.modo}));
}

// --- closing

bool gestcommVentana::canalesOcupados() const {
  static const std::set<int> kOcupados = {1, 2, 4, 5, 9, 10};
  for (const motor::VistaCanal& c : s_.motor.canales())
    if (kOcupados.contains(c.EstadoCanal)) return true;
  return false;
}

bool gestcommVentana::QueryUnload() {
  if (!terminarAlAcabar_ && !s_.motor.puedeCerrar()) {
    MyMsgBox::Decide(this, contexto().textos, t(kTxProcesosEnCurso), kCritico);
    return true;
  }
  if (!terminarAlAcabar_ && !consienteDejarlas(*this, s_.motor, s_.repertorio)) return true;
  if (canalesOcupados()) {
    terminar();
    return true;
  }
  const auto* quien = qobject_cast<const Ventana*>(dueno());
  const bool deAutomat = quien && quien->nombre() == u"Automat";
  if (s_.sesion.estado() == 2 && !deAutomat &&
      contexto().ventanas.conoce<totals::PuertaCerrSes>() &&
      !preguntar(totals::PuertaCerrSes{.alSalir = true}) && s_.sesion.estado() == 2)
    return true;
  s_.motor.CambioAModo(true);  // no task waits for a button of a closed window
  return false;
}

// The hidden window is unloaded when the last channel has been closed.
void gestcommVentana::terminar() {
  hide();
  if (std::exchange(terminarAlAcabar_, true)) return;
  const QPointer<gestcommVentana> yo(this);
  s_.motor.cerrar([yo] {
    if (yo)
      QMetaObject::invokeMethod(
          yo.data(),
          [yo] {
            if (yo->terminarAlAcabar_) yo->descargar();
          },
          Qt::QueuedConnection);
  });
}

// While a process is being watched over, Escape and Ctrl are passed on to its window.
void gestcommVentana::keyPressEvent(QKeyEvent* evento) {
  const bool paraAutomat = evento->key() == Qt::Key_Escape || evento->key() == Qt::Key_Control;
  Ventana* automat =
      paraAutomat && s_.motor.Vigilando() ? contexto().ventanas.cargada(u"Automat"_s) : nullptr;
  if (!automat) return Ventana::keyPressEvent(evento);
  evento->accept();
  automat->activateWindow();
  automat->setFocus();
  QKeyEvent copia(evento->type(), evento->key(), evento->modifiers(), evento->text());
  QCoreApplication::sendEvent(automat, &copia);
}

}  // namespace tarvo::comm
