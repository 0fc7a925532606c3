#include "automation/ventanas/AutomatVentana.h"

#include <QFileInfo>
#include <QScrollBar>

#include "automation/ventanas/CtrlSolo.h"
#include "automation/ventanas/TextosAutomationVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/Ventanas.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr int kCierreMs = 1000;
// A timetable waits for the window of a run that was stopped; an absent user must not cost the
// night.
constexpr int kCierreAbortadoMs = 5 * 60 * 1000;
constexpr int kColaMs = 500;
constexpr int kLineasTraza = 20'000;

Estado estadoDe(EstadoPaso e) {
  switch (e) {
    case EstadoPaso::Hecho:
      return Estado::Bien;
    case EstadoPaso::ConProblemas:
      return Estado::Mal;
    case EstadoPaso::Interrumpido:
      return Estado::Duda;
    default:
      return Estado::Ninguno;
  }
}

QString imagenPaso(EstadoPaso e) {
  static constexpr std::array<const char16_t*, 6> kImagenes{u"",    u"ejecutar", u"bien",
                                                            u"mal", u"duda",     u"esperando"};
  return QString::fromUtf16(kImagenes[static_cast<size_t>(e)]);
}

std::vector<Columna> columnasPasos(const Textos& textos) {
  const auto palabra = [&textos](const dao::Valor& v) {
    return textos(kTxEstadoPaso + static_cast<int>(v.entero()));
  };
  const auto imagen = [](const dao::Valor& v) {
    return imagenPaso(static_cast<EstadoPaso>(v.entero()));
  };
  const auto estado = [](const dao::Valor& v) {
    return estadoDe(static_cast<EstadoPaso>(v.entero()));
  };
  return {{.titulo = kTxColNumero,
           .campo = u"numero"_s,
           .clase = Clase::Codigo,
           .cifras = 3,
           .ancho = 56},
          {.titulo = kTxColPaso, .campo = u"paso"_s, .ancho = 460, .ordenable = false},
          {.titulo = ventanas::kTxResultado,
           .campo = u"resultado"_s,
           .ancho = 170,
           .ver = palabra,
           .imagen = imagen,
           .estado = estado},
          {.titulo = ventanas::kTxMotivo, .campo = u"motivo"_s, .ancho = 260},
          {.titulo = kTxColOrden,
           .campo = u"orden"_s,
           .ancho = 200,
           .oculta = true,
           .ordenable = false}};
}

FilaViva filaPaso(size_t i, const VistaPaso& v) {
  const auto n = static_cast<qint64>(i) + 1;
  return {n, {n, v.dicho, static_cast<int>(v.estado), v.motivo, v.texto}};
}

struct CaraFase {
  int titulo;
  QString icono;
};

CaraFase caraDe(int fase, ResultadoProceso resultado) {
  switch (fase) {
    case kEjecutando:
    case kConfirmando:
      return {kTxEjecutandose, u"ejecutar"_s};
    case kPasoAPaso:
    case kDetenidoEnPaso:
      return {kTxRetenido, u"pausa"_s};
    case kAbortando:
      return {kTxEjecutandose, u"parar"_s};
    case kAcabando:
      return {kTxEjecutandose, u"esperando"_s};
    case kAcabado:
      return {kTxTerminado, resultado == ResultadoProceso::Bien ? u"bien"_s : u"mal"_s};
    case kAbortado:
      return {kTxListo, u"parar"_s};
    default:
      return {kTxListo, u"automatico"_s};
  }
}

}  // namespace

AutomatVentana::AutomatVentana(Contexto& c, const QString& nombre, Automat& automat,
                               const Lenguaje& lenguaje, const motor::gestcomm& motor)
    : Ventana(c, nombre),
      a_(automat),
      lenguaje_(lenguaje),
      motor_(motor),
      cierre_(c.reloj.temporizador([this] { cuandoAcaba(); })),
      cola_(c.reloj.temporizador([this] { ponerCola(); })) {
  ui_.setupUi(cuerpo());
  ui_.division->setSizes({escalar(340), escalar(180)});
  ponerLetra(*ui_.lblTitulo, Letra::Titulo);
  enlazar();
  ui_.ListaPasos->preparar(c, nombre, columnasPasos(c.textos));
  ui_.ListaPasos->vivas();
  ui_.ListaPasos->ponerUnaSola(true);
  ui_.ListaPasos->ponerBusca(false);
  ui_.ListaPasos->ponerVacia(t(kTxSinProceso));
  ui_.ListaPasos->vista()->setAccessibleName(t(kTxPasosProceso));
  ui_.Problemas->setAccessibleName(t(kTxTrazaEjecucion));
  conectar();
  seguirTraza();
  a_.avisarAlCerrar = true;
  a_.observar(*this);
  connect(this, &Ventana::descargada, this, [this] { soltar(); });
}

AutomatVentana::~AutomatVentana() {
  soltar();
}

// Called when the window is closed, not when it is destroyed: another one may be created in
// between.
void AutomatVentana::soltar() {
  if (std::exchange(soltada_, true)) return;
  a_.dejarDeObservar(*this);
  a_.avisarAlCerrar = false;
  a_.cerrado();
}

void AutomatVentana::conectar() {
  unir(ui_.ejecutar, u"ejecutar"_s, Qt::Key_F9, [this] { a_.ejecutar(); });
  unir(ui_.retener, u"pausa"_s, Qt::Key_F8, [this] { a_.retener(); });
  // The keys that go on with the queue and hold it in the window of communications. The former
  // begins nothing here.
  auto* seguir = new QAction(this);
  seguir->setShortcut(Qt::Key_F6);
  addAction(seguir);
  connect(seguir, &QAction::triggered, this, [this] {
    a_.fase() == kDetenidoEnPaso || a_.fase() == kPasoAPaso ? a_.ejecutar()
                                                            : decirPista(t(kTxNadaRetenido));
  });
  ui_.retener->setShortcuts({Qt::Key_F8, Qt::Key_F7});
  unir(ui_.paso, u"adelante"_s, Qt::Key_F10, [this] { a_.paso(); });
  unir(ui_.Alto, u"parar"_s, {}, [this] { alto(); });
  unir(ui_.ver, u"informacion"_s, {},
       [this] { static_cast<void>(preguntar(PuertaVeoLog{a_.rutaTraza()})); });
  unir(ui_.salir, u"cerrar"_s, {}, [this] { close(); });
  connect(&contexto().tema, &Tema::cambiado, this, [this] { ponerFase(); });
  // A key touched by accident may go on with a held run, but neither holds a night nor begins one
  // that was stopped again.
  new CtrlSolo(*this, [this] {
    if (a_.fase() != kEjecutando && a_.fase() != kAbortado) a_.ejecutar();
  });
}

// --- display ------------------------------------------------------------------------------------

Resultado<> AutomatVentana::entrar(const PuertaAutomat& puerta) {
  if (!puerta.proceso.isEmpty()) TARVO_INTENTAR(cargar(puerta.proceso));
  vistos_.clear();
  empezarTraza();
  automatCambiado();
  ui_.ListaPasos->vista()->setFocus();
  return {};
}

Resultado<> AutomatVentana::cargar(const QString& ruta) {
  if (a_.enMarcha())
    return fallo(Fallo::Ocupado, contexto().textos(kTxYaHayProceso, {a_.nombre()}));
  auto leido = lenguaje_.LeerProceso(ruta);
  if (!leido) {
    QString mensaje = t(kTxNoSeCargo);
    CambiaTexto(u"#"_s, NombreFichero(ruta), mensaje);
    return fallo(leido.error().clase, mensaje + u". "_s + leido.error().texto);
  }
  if (!leido->activaciones.empty()) {
    alHorario(ruta);
    return {};
  }
  // It starts once the window is open, since its first step may ask a question.
  QMetaObject::invokeMethod(
      this,
      [this, leido = std::move(*leido), base = QFileInfo(ruta).completeBaseName()] {
        if (!a_.enMarcha()) a_.PROCESO(leido.pasos, {}, base, leido.omitidas);
      },
      Qt::QueuedConnection);
  return {};
}

// A process that contains a timetable isn't run here, but waits for its hours in Cronos.
void AutomatVentana::alHorario(const QString& ruta) {
  setAttribute(Qt::WA_DontShowOnScreen);
  QMetaObject::invokeMethod(
      this,
      [this, ruta] {
        contexto().ventanas.abrir(PuertaCronos{ruta}, dueno());
        close();
      },
      Qt::QueuedConnection);
}

void AutomatVentana::automatCambiado() {
  if (a_.escrito().isEmpty() && ui_.Problemas->count() > 0) ui_.Problemas->clear();
  ponerFase();
  ponerBotones();
  ponerPasos();
  ponerCola();
}

void AutomatVentana::ponerFase() {
  const int fase = a_.fase();
  const CaraFase cara = caraDe(fase, a_.resultado());
  const QString titulo = a_.nombre().isEmpty() ? cuerpo()->windowTitle()
                                               : contexto().textos(cara.titulo, {a_.nombre()});
  ui_.lblTitulo->setText(titulo);
  setWindowTitle(titulo);
  setWindowIcon(icono(cara.icono));
  ui_.imagenFase->setPixmap(icono(cara.icono).pixmap(escalar(kIconoGrande)));
  ponerCierre();
}

// A completed run closes its window. An aborted one of a timetable does so too: soon if it failed
// by itself, as there may be nobody to close it, and much later if the user stopped it.
void AutomatVentana::ponerCierre() {
  const bool abortada = a_.fase() == kAbortado && a_.diferida();
  if (preguntando_ || (a_.fase() != kAcabado && !abortada)) return cierre_->parar();
  if (cierre_->activo()) return;
  const bool porPersona = abortada && a_.resultado() == ResultadoProceso::Abortado;
  cierre_->unaVez(porPersona ? kCierreAbortadoMs : kCierreMs);
}

void AutomatVentana::ponerBotones() {
  const int fase = a_.fase();
  const QWidget* foco = focusWidget();
  const bool parado = fase == kCargado || fase == kAbortado || fase == kDetenidoEnPaso;
  const bool hay = !a_.nombre().isEmpty();
  ui_.ejecutar->setEnabled(hay && (parado || fase == kPasoAPaso));
  ui_.retener->setEnabled(fase == kEjecutando);
  ui_.paso->setEnabled(hay && parado);
  ui_.Alto->setEnabled(a_.enMarcha() && fase != kAbortando);
  ui_.ver->setEnabled(hay);
  ui_.salir->setEnabled(!a_.enMarcha());
  ponerPorQue();
  // The focus of a button that can't be pressed any more doesn't pass to the next one, "Alto".
  if (foco && !foco->isEnabled()) ui_.ListaPasos->vista()->setFocus();
}

// Why the buttons that can't be pressed now can't.
void AutomatVentana::ponerPorQue() {
  const int fase = a_.fase();
  const int comun = a_.nombre().isEmpty() ? kTxSinProceso
                    : fase == kAbortando  ? kTxSeEstaParando
                    : fase == kAcabado    ? kTxYaAcabo
                                          : 0;
  const auto poner = [&](QAction* a, int suyo) {
    a->setProperty(kPorQueNo, t(comun != 0 ? comun : suyo));
  };
  poner(ui_.ejecutar, kTxYaEstaEnMarcha);
  poner(ui_.paso, fase == kPasoAPaso ? kTxPasoEnMarcha : kTxPasoTrasRetener);
  poner(ui_.retener, a_.enMarcha() ? kTxYaRetenido : kTxNadaEnMarcha);
  poner(ui_.Alto, kTxNadaEnMarcha);
  poner(ui_.ver, kTxSinProceso);
  poner(ui_.salir, kTxNoSeCierra);
}

// Updates only the rows that changed: a long process changes twice a second.
void AutomatVentana::ponerPasos() {
  const auto& pasos = a_.pasos();
  ModeloVivo& filas = ui_.ListaPasos->vivas();
  if (vistos_.size() != pasos.size() || (!pasos.empty() && vistos_[0].texto != pasos[0].texto)) {
    std::vector<FilaViva> todas;
    todas.reserve(pasos.size());
    for (size_t i = 0; i < pasos.size(); ++i) todas.push_back(filaPaso(i, pasos[i]));
    filas.poner(std::move(todas));
    pasoVisto_ = -1;
  } else {
    for (size_t i = 0; i < pasos.size(); ++i)
      if (vistos_[i].estado != pasos[i].estado || vistos_[i].motivo != pasos[i].motivo ||
          vistos_[i].texto != pasos[i].texto)
        filas.poner(filaPaso(i, pasos[i]));
  }
  vistos_ = pasos;
  const int actual = a_.pasoActual();
  const bool dentro = actual >= 0 && actual < static_cast<int>(pasos.size());
  ui_.lblPaso->setText(dentro ? contexto().textos(kTxPasoDe, {actual + 1, pasos.size()})
                              : QString());
  if (dentro && actual != pasoVisto_) ui_.ListaPasos->irA(filas.filaDe(actual + 1));
  pasoVisto_ = actual;
}

void AutomatVentana::ponerCola() {
  const int total = motor_.CuantosQuedan().total;
  ui_.lblCola->setText(total > 0 ? contexto().textos(kTxTareasEnCola, {total}) : QString());
  if (!a_.enMarcha())
    cola_->parar();
  else if (!cola_->activo())
    cola_->cada(kColaMs);
}

void AutomatVentana::empezarTraza() {
  ui_.Problemas->clear();
  ui_.Problemas->addItems(a_.escrito());
  sigueTraza_ = true;
  ui_.Problemas->scrollToBottom();
}

// A view at the end stays there when lines are added or its height changes.
void AutomatVentana::seguirTraza() {
  const auto* barra = ui_.Problemas->verticalScrollBar();
  connect(barra, &QScrollBar::valueChanged, this,
          [this, barra] { sigueTraza_ = barra->value() >= barra->maximum(); });
  connect(barra, &QScrollBar::rangeChanged, this, [this] {
    if (sigueTraza_) ui_.Problemas->scrollToBottom();
  });
}

void AutomatVentana::lineaEscrita(const QString& linea) {
  if (ui_.Problemas->count() >= kLineasTraza) delete ui_.Problemas->takeItem(0);
  ui_.Problemas->addItem(linea);
}

// --- operations ---------------------------------------------------------------------------------

void AutomatVentana::alto() {
  if (!a_.enMarcha()) {
    close();
    return;
  }
  if (a_.fase() == kAbortando || a_.fase() == kConfirmando) return;
  preguntando_ = true;
  a_.confirmando(true);
  const QString pregunta = t(kTxVaASuspender) + u"\n\n"_s + t(kTxTambienEliminara);
  const bool si =
      MyMsgBox::Decide(this, contexto().textos, pregunta, kAceptoCancelo | kExclamacion);
  preguntando_ = false;
  a_.confirmando(false);
  if (si) a_.abortar();
}

void AutomatVentana::cuandoAcaba() {
  if (!a_.enMarcha()) cerrarSola();
}

void AutomatVentana::keyPressEvent(QKeyEvent* evento) {
  if (evento->key() != Qt::Key_Escape) return Ventana::keyPressEvent(evento);
  evento->accept();
  alto();
}

// A run without a window could be neither held nor stopped.
bool AutomatVentana::QueryUnload() {
  if (!a_.enMarcha()) return false;
  decirDuda(t(kTxNoSeCierra));
  return true;
}

}  // namespace tarvo::automation
