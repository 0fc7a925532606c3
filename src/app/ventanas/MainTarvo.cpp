#include "app/ventanas/MainTarvo.h"

#include <QApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMenu>
#include <QScopedValueRollback>
#include <QToolButton>

#include "app/ventanas/Entrada.h"
#include "app/ventanas/Manana.h"
#include "app/ventanas/SysTray.h"
#include "app/ventanas/TextosPrincipal.h"
#include "comm/ventanas/Pendientes.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/Alcance.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/Tira.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::app {

using namespace Qt::StringLiterals;
using ventanas::escalar;

namespace {

constexpr qint64 kTrasHijaMs = 1000;
constexpr int kSesionConDatos = 2;

struct EntradaMenu {
  Entrada* Ui::MainTarvo::* boton;
  const char16_t* icono;
  Lleva lleva = {};  // none: it opens a panel, or the user's own entries
};

const std::vector<EntradaMenu>& entradas() {
  using U = Ui::MainTarvo;
  static const std::vector<EntradaMenu> kEntradas{
      {&U::Balanzas, u"balanza", articles::PuertaBrowGrupos{.grupos = true}},
      {&U::Articulos, u"articulo", articles::PuertaBrowGrupos()},
      {&U::Operadores, u"operador", articles::PuertaBrowOper()},
      {&U::EnviarRecibir, u"recibir", comm::PuertaGestcomm()},
      {&U::Totales, u"totales", totals::PuertaVerTot()},
      {&U::Etiquetas, u"etiqueta", PorNombre{u"EdiEtqu"_s}},
      {&U::Almacen, u"almacen"},
      {&U::Avanzados, u"mas"},
      {&U::Personalizado, u"ejecutar"},
      {&U::Ofertas, u"etiqueta", precios::PuertaBrowOfer()},
      {&U::Albaranes, u"importar", PorNombre{u"BrowAlba"_s}},
      {&U::Traspasos, u"transfiriendo", PorNombre{u"BrowTrans"_s}},
      {&U::Pedidos, u"exportar", PorNombre{u"BrowPedi"_s}},
      {&U::Inventarios, u"sumar", PorNombre{u"BrowInve"_s}},
      {&U::Almacenes, u"almacen", PorNombre{u"StckCtrl"_s}},
      {&U::Automaticos, u"automatico", PorNombre{u"BrwMac"_s}},
      {&U::EnLinea, u"linea", PorNombre{u"PortalEnLinea"_s}},
      {&U::Configuracion, u"ajustes", PuertaPortalCnf()},
  };
  return kEntradas;
}

}  // namespace

MainTarvo::MainTarvo(ventanas::Contexto& contexto, const QString& nombre, Aplicacion& aplicacion)
    : Ventana(contexto, nombre),
      app_(aplicacion),
      tray_(new SysTray(this)),
      deshacer_(new ventanas::Deshacer(*this)) {
  ui_.setupUi(cuerpo());
  manana_ = new Manana(contexto, aplicacion, cuerpo());
  ui_.SitioManana->addWidget(manana_);
  ui_.todo->setStretch(1, 1);
  ponerEntradas();
  enlazar();
  setWindowIcon(ventanas::icono(u"tarvo"_s));
  ui_.Logo->setPixmap(windowIcon().pixmap(escalar(2 * ventanas::kIcono)));
  ui_.Version->setText(t(kTxVer) + QStringLiteral(TARVO_VERSION));
  ui_.Columna->setBackgroundRole(QPalette::Base);
  ui_.Columna->setAutoFillBackground(true);
  ventanas::ponerLetra(*ui_.Titulo, ventanas::Letra::Titulo);
  ventanas::ponerLetra(*ui_.Version, ventanas::Letra::Secundaria);
  refrescarPersonal();
  mostrarPanel(kPrincipal);
  atenderBandeja();
  qApp->installEventFilter(this);
  connect(manana_, &Manana::elegida, this, &MainTarvo::ir);
  connect(manana_, &Manana::fallo, this, [this](const Error& e) { decirFallo(e); });
}

MainTarvo::~MainTarvo() = default;

// The first entry that can be used.
Resultado<> MainTarvo::entrar(const PuertaMainTarvo&) {
  if (focusWidget()) return {};
  for (auto* b : ui_.Paneles->currentWidget()->findChildren<Entrada*>())
    if (b->vale()) {
      b->setFocus(Qt::OtherFocusReason);
      break;
    }
  return {};
}

// --- entries ------------------------------------------------------------------------------------

void MainTarvo::ponerEntradas() {
  for (const EntradaMenu& e : entradas()) {
    Entrada* b = ui_.*e.boton;
    b->setIcon(ventanas::icono(QString::fromUtf16(e.icono)));
    const int lado = escalar(ventanas::kIconoGrande);
    b->setIconSize({lado, lado});
    const QString ventana = ventanaDe(e.lleva);
    if (ventana.isEmpty()) continue;
    // Its letter leaves the focus elsewhere; it comes back here after the window that is opened.
    connect(b, &QToolButton::clicked, this, [this, b, &e] {
      b->setFocus();
      ir(e.lleva);
    });
    if (!contexto().ventanas.conoce(ventana)) b->ponerSinVentana(t(kTxSinEstaVentana));
  }
  connect(ui_.Almacen, &QToolButton::clicked, this, [this] { mostrarPanel(kAlmacen); });
  connect(ui_.Avanzados, &QToolButton::clicked, this, [this] { mostrarPanel(kAvanzado); });
  connect(ui_.Personalizado, &QToolButton::clicked, this, &MainTarvo::pulsarPersonal);
  atenderMenu(*ui_.Personalizado, std::nullopt);
  ui_.Minimizar->setIcon(ventanas::icono(u"quitar"_s));
  connect(ui_.Salir, &QToolButton::clicked, this, &MainTarvo::salir);
  connect(ui_.Minimizar, &QToolButton::clicked, this, &MainTarvo::minimizar);
}

// Assigns the mnemonics panel by panel: only one panel is visible at a time, together with the
// buttons below all of them.
void MainTarvo::ponerLetras() {
  for (int i = 0; i < ui_.Paneles->count(); ++i) {
    QSet<QChar> usadas;
    for (const int texto : {ventanas::kTxSalir, ventanas::kTxManualAtras})
      ventanas::conLetra(t(texto), usadas);
    ventanas::conLetra(ui_.Minimizar->text(), usadas);
    for (auto* b : ui_.Paneles->widget(i)->findChildren<Entrada*>())
      if (!b->objectName().isEmpty()) b->setText(ventanas::conLetra(b->text(), usadas));
  }
}

void MainTarvo::ir(const Lleva& adonde) {
  if (!contexto().ventanas.conoce(ventanaDe(adonde))) return decirPista(t(kTxSinEstaVentana));
  preguntaba_ = false;
  abrirLo(contexto().ventanas, adonde, this);
}

void MainTarvo::mostrarPanel(Panel panel) {
  const int antes = ui_.Paneles->currentIndex();
  if (panel != kPrincipal) escapeAjeno_ = false;
  ui_.Paneles->setCurrentIndex(panel);
  ui_.Salir->setText(t(panel == kPrincipal ? ventanas::kTxSalir : ventanas::kTxManualAtras));
  ui_.Salir->setIcon(ventanas::icono(panel == kPrincipal ? u"cerrar"_s : u"atras"_s));
  if (antes == panel || !isActiveWindow()) return;
  // Back on the main panel: the entry whose panel has been left.
  if (panel == kPrincipal) {
    Entrada* de[] = {ui_.Balanzas, ui_.Almacen, ui_.Avanzados, ui_.Personalizado};
    return de[antes]->setFocus(Qt::TabFocusReason);
  }
  for (auto* b : ui_.Paneles->currentWidget()->findChildren<Entrada*>())
    if (b->isEnabled()) return b->setFocus(Qt::TabFocusReason);
  ui_.Salir->setFocus(Qt::TabFocusReason);
}

// Moves from entry to entry with Up and Down, wrapping around at the ends.
void MainTarvo::moverFoco(int pasos) {
  QList<QToolButton*> botones = ui_.Paneles->currentWidget()->findChildren<QToolButton*>();
  botones << ui_.Salir << ui_.Minimizar;
  botones.removeIf([](const QToolButton* b) { return !b->isEnabled() || !b->isVisible(); });
  const auto aqui = botones.indexOf(qobject_cast<QToolButton*>(focusWidget()));
  if (botones.isEmpty()) return;
  const auto n = botones.size();
  QToolButton* va = botones[aqui < 0 ? 0 : (aqui + pasos + n) % n];
  va->setFocus(Qt::TabFocusReason);
  if (ui_.Propias->isAncestorOf(va)) ui_.SitioPropias->ensureWidgetVisible(va);
}

// Boxes, menus and file dialogs are no windows of the registry, but their Escape isn't this
// window's either.
bool MainTarvo::eventFilter(QObject* objeto, QEvent* evento) {
  if (evento->type() != QEvent::Hide || evento->spontaneous() || objeto == this ||
      !objeto->isWidgetType())
    return false;
  const auto& w = *static_cast<QWidget*>(objeto);
  if (w.isWindow() && w.windowType() != Qt::ToolTip) hijaIda_ = contexto().reloj.monotono();
  return false;
}

void MainTarvo::hijaCerradaSola() {
  Ventana::hijaCerradaSola();
  escapeAjeno_ = true;
}

void MainTarvo::keyPressEvent(QKeyEvent* evento) {
  const bool escape = evento->key() == Qt::Key_Escape;
  if (escape && !atiendeEscape(*evento)) return evento->accept();
  if (!escape) escapeAjeno_ = false;
  const bool enColumna = ui_.Columna->isAncestorOf(focusWidget());
  if (enColumna && (evento->key() == Qt::Key_Down || evento->key() == Qt::Key_Up))
    return moverFoco(evento->key() == Qt::Key_Down ? 1 : -1);
  if (enColumna && (evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter)) {
    if (auto* b = qobject_cast<QToolButton*>(focusWidget())) return b->click();
  }
  Ventana::keyPressEvent(evento);
}

// An Escape right after another window has closed was meant for that window, and so may be the
// first one after one has closed by itself, however late: nothing else was done here since. If a
// run or a collection is in progress, it asks before closing, so that it isn't ended by accident.
bool MainTarvo::atiendeEscape(const QKeyEvent& escape) {
  if (escape.isAutoRepeat()) return false;
  if (hijaIda_ >= 0 && contexto().reloj.monotono() - hijaIda_ < kTrasHijaMs) return false;
  if (std::exchange(escapeAjeno_, false)) {
    decirPista(t(kTxOtraEscape));
    return false;
  }
  QStringList quedan;
  if (app_.automat().enMarcha())
    quedan << contexto().textos(kTxQuedaProceso, {app_.automat().nombre()});
  if (app_.sesion().estado() == kSesionConDatos) quedan << t(kTxQuedaBandeja);
  if (quedan.isEmpty()) return true;
  quedan << t(kTxSalirAsi);
  return ventanas::MyMsgBox::Decide(
      this, contexto().textos, quedan.join(u'\n'),
      ventanas::kAceptoCancelo | ventanas::kExclamacion | ventanas::kPrudente);
}

// --- activation and closing ---------------------------------------------------------------------

void MainTarvo::changeEvent(QEvent* evento) {
  Ventana::changeEvent(evento);
  if (evento->type() == QEvent::WindowStateChange && isMinimized() && tray_->hay() && esLaUnica())
    hide();
  if (evento->type() != QEvent::ActivationChange) return;
  if (isActiveWindow()) {
    // Back from a question or a dialog of its own: the panel is where it was asked for.
    if (!enPersonal_ && !std::exchange(preguntaba_, false)) mostrarPanel(kPrincipal);
    // The obstacle to closing has ended meanwhile.
    if (tira().texto() == t(kTxSinCerrar) && app_.gestcomm().puedeCerrar()) tira().quitar();
    if (ultimaEntrada_ && ultimaEntrada_->isVisible()) ultimaEntrada_->setFocus();
  } else {
    ultimaEntrada_ = focusWidget();
    preguntaba_ = QApplication::activeModalWidget() || QApplication::activePopupWidget();
  }
}

// The window is brought back by a click, or by the menu.
void MainTarvo::atenderBandeja() {
  connect(tray_, &SysTray::MouseUp, this, [this](int boton) {
    if (boton == 1) reaparecer();
  });
  auto* menu = new QMenu(this);
  connect(menu->addAction(t(kTxMostrarTarvo)), &QAction::triggered, this, [this] { reaparecer(); });
  connect(menu->addAction(t(ventanas::kTxSalir)), &QAction::triggered, this, [this] {
    reaparecer();  // any refusal or question must be visible
    close();
  });
  // The icon is only requested from the desktop once the window is on the screen.
  connect(
      manana_, &Manana::renovada, tray_,
      [this, menu] {
        tray_->IniSysTray(windowIcon(), windowTitle());
        tray_->MenuSysTray(menu);
      },
      Qt::SingleShotConnection);
}

void MainTarvo::salir() {
  escapeAjeno_ = false;
  ui_.Paneles->currentIndex() == kPrincipal ? static_cast<void>(close()) : mostrarPanel(kPrincipal);
}

bool MainTarvo::esLaUnica() const {
  for (const Ventana* v : contexto().ventanas.abiertas())
    if (v != this && v->isVisible()) return false;
  return true;
}

void MainTarvo::minimizar() {
  tray_->hay() && esLaUnica() ? hide() : showMinimized();
}

void MainTarvo::reaparecer() {
  showNormal();
  raise();
  activateWindow();
}

std::vector<ventanas::Captura*> MainTarvo::CapturasActivas() const {
  std::vector<ventanas::Captura*> activas;
  for (Ventana* v : contexto().ventanas.abiertas())
    if (auto* c = v->captura()) activas.push_back(c);
  return activas;
}

void MainTarvo::suspenderCapturas() {
  const QScopedValueRollback en(suspendiendo_, true);
  for (ventanas::Captura* c : CapturasActivas()) c->SuspenderCaptura(false);
  QEventLoop bucle;
  connect(&contexto().ventanas, &ventanas::Ventanas::descargada, &bucle, [&] {
    if (CapturasActivas().empty()) bucle.quit();
  });
  if (!CapturasActivas().empty()) bucle.exec();
}

// The engine goes on working after its window has been closed; without that window, the question is
// asked here.
bool MainTarvo::dejaElMotor() {
  if (contexto().ventanas.cargada<comm::PuertaGestcomm>()) return true;
  if (app_.gestcomm().puedeCerrar())
    return comm::consienteDejarlas(*this, app_.gestcomm(), app_.repertorio());
  decirDuda(t(kTxSinCerrar));
  return false;
}

bool MainTarvo::QueryUnload() {
  if (suspendiendo_ || !dejaElMotor()) return true;
  suspenderCapturas();
  if (contexto().ventanas.DescargaTodo(this)) {
    if (contexto().ventanas.cargada<comm::PuertaGestcomm>()) decirDuda(t(kTxSinCerrar));
    return true;
  }
  tray_->FinSysTray();
  // The settings are written again when the program ends, and a failure is then reported.
  static_cast<void>(contexto().ajustes.GuardarConfig());
  return false;
}

}  // namespace tarvo::app
