#include "core/ventanas/marco/Ventana.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QEventLoop>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWindow>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/aspecto/TraducirForm.h"
#include "core/ventanas/marco/Alcance.h"
#include "core/ventanas/marco/Buscable.h"
#include "core/ventanas/marco/Recuerdos.h"
#include "core/ventanas/marco/Retenida.h"
#include "core/ventanas/marco/Tira.h"
#include "core/ventanas/marco/TiraTrabajo.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kTrasHijaMs = 1000;

// All instances, such as "VerCols#12", share one memory.
QString sinInstancia(const QString& nombre) {
  return nombre.section(u'#', 0, 0);
}

QString enTexto(const QByteArray& bytes) {
  return QString::fromLatin1(bytes.toBase64());
}

QByteArray deTexto(const QString& texto) {
  return QByteArray::fromBase64(texto.toLatin1());
}

// Hears the clicks on the disabled buttons of tool bars, which would go nowhere.
class ClicsEnVano final : public QObject {
 public:
  ClicsEnVano(Ventana& v, QWidget& cuerpo, std::function<void(const QAction&)> decir)
      : QObject(&v), decir_(std::move(decir)) {
    for (QToolButton* b : cuerpo.findChildren<QToolButton*>())
      if (b->defaultAction()) b->installEventFilter(this);
  }

 private:
  bool eventFilter(QObject* objeto, QEvent* evento) override {
    if (evento->type() != QEvent::MouseButtonPress) return false;  // also its own destruction
    const auto* b = static_cast<QToolButton*>(objeto);
    if (!b->isEnabled() && b->defaultAction()) decir_(*b->defaultAction());
    return false;
  }
  std::function<void(const QAction&)> decir_;
};

// The button in the corner of a table, which the tables of Qt make, has no name of its own.
void nombrarEsquinas(const QWidget& cuerpo, const QString& nombre) {
  for (const QTableView* tabla : cuerpo.findChildren<QTableView*>())
    for (auto* b : tabla->findChildren<QAbstractButton*>(Qt::FindDirectChildrenOnly))
      if (b->accessibleName().isEmpty() && b->inherits("QTableCornerButton"))
        b->setAccessibleName(nombre);
}

}  // namespace

Ventana::Ventana(Contexto& contexto, const QString& nombre)
    : QWidget(nullptr, Qt::Window),
      c_(contexto),
      nombre_(nombre),
      cuerpo_(new QWidget(this)),
      tira_(new Tira(contexto.textos, contexto.reloj, this)),
      trabajo_(new TiraTrabajo(contexto.textos, contexto.reloj, this)) {
  setObjectName(sinInstancia(nombre));
  auto* todo = new QVBoxLayout(this);
  todo->setContentsMargins(0, 0, 0, 0);
  todo->setSpacing(0);
  todo->addWidget(tira_);
  todo->addWidget(cuerpo_, 1);
  todo->addWidget(trabajo_);
  // A shortcut, since controls that accept letters would consume the key.
  connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this,
          &Ventana::irABuscar);
}

Ventana::~Ventana() {
  // Signals of controls being destroyed (a field that loses the focus) require a window that is
  // still whole.
  for (QObject* o : findChildren<QObject*>()) o->disconnect(this);
}

void Ventana::enlazar() {
  TraducirForm(*cuerpo_, c_.textos, c_.ajustes.idioma);
  connect(cuerpo_, &QWidget::windowTitleChanged, this, &QWidget::setWindowTitle);
  setWindowTitle(cuerpo_->windowTitle());
  resize(QSize(escalar(cuerpo_->width()), escalar(cuerpo_->height()))
             .boundedTo(screen()->availableSize()));
  const QString memoria = sinInstancia(nombre_);
  conSitio_ = restoreGeometry(deTexto(c_.recuerdos.leer(memoria, u"sitio"_s)));
  for (QSplitter* s : cuerpo_->findChildren<QSplitter*>())
    s->restoreState(deTexto(c_.recuerdos.leer(memoria, s->objectName())));
  if (!cuerpo_->findChild<QTabWidget*>()) return;
  for (const auto& [tecla, pasos] :
       {std::pair{Qt::CTRL | Qt::Key_Tab, 1}, {Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, -1}})
    connect(new QShortcut(tecla, this), &QShortcut::activated, this,
            [this, n = pasos] { pasarFicha(n); });
}

void Ventana::decirPendiente(const Error& error) {
  decirFallo(error);
  pendiente_ = error.texto;
}

void Ventana::resuelto() {
  if (tira_->estado() == Estado::Mal && tira_->texto() == pendiente_) tira_->quitar();
}

void Ventana::acierto() {
  if (tira_->estado() == Estado::Mal) tira_->quitar();
}

void Ventana::acoger(Buscable& lista) {
  if (std::ranges::find(listas_, &lista) != listas_.end()) return;
  listas_.push_back(&lista);
  connect(&lista.control(), &QObject::destroyed, this,
          [this, cual = &lista] { std::erase(listas_, cual); });
}

void Ventana::crecer(const QSize& tamano) {
  resize(tamano);
  const QRect pantalla = screen()->availableGeometry();
  const auto dentro = [](int donde, int largo, int desde, int cabe) {
    return std::clamp(donde, desde, desde + std::max(0, cabe - largo));
  };
  const QRect marco = frameGeometry();
  const QPoint sitio(dentro(marco.x(), marco.width(), pantalla.x(), pantalla.width()),
                     dentro(marco.y(), marco.height(), pantalla.y(), pantalla.height()));
  if (sitio != pos()) move(sitio);
}

void Ventana::unir(QAction* accion, const QString& dibujo, const QKeySequence& tecla,
                   const std::function<void()>& hacer) {
  accion->setIcon(icono(dibujo));
  accion->setShortcut(tecla);
  alDar(accion, hacer);
}

void Ventana::alDar(QAction* accion, const std::function<void()>& hacer) {
  connect(accion, &QAction::triggered, this, [this, hacer] {
    const int antes = tira_->veces();
    const qint64 cambios = c_.base.cambios();
    const QPointer<Ventana> yo(this);
    hacer();
    if (!yo || tira_->veces() != antes) return;
    if (pista_ == antes) tira_->quitar();
    if (c_.base.cambios() != cambios) acierto();
  });
}

void Ventana::decirCambiadosFuera() {
  constexpr qsizetype kNombrados = 4;
  QStringList claves = c_.ajustes.cambiadosFuera();
  if (claves.isEmpty()) return;
  if (claves.size() > kNombrados) claves = claves.mid(0, kNombrados) << QStringLiteral("…");
  decirDuda(c_.textos(kTxCambiadosFuera, {claves.join(u", ")}));
}

void Ventana::decirPista(const QString& texto) {
  decirDuda(texto);
  pista_ = tira_->veces();
}

void Ventana::quitarPista() {
  if (pista_ == tira_->veces()) tira_->quitar();
}

// A field that drops a key holds another value than was typed: it is heard and seen.
void Ventana::oirRechazos() {
  for (QLineEdit* campo : cuerpo_->findChildren<QLineEdit*>())
    connect(campo, &QLineEdit::inputRejected, this, [this] {
      QApplication::beep();
      decirPista(t(kTxTeclaRechazada));
    });
}

void Ventana::recordar() {
  const QString memoria = sinInstancia(nombre_);
  c_.recuerdos.poner(memoria, u"sitio"_s, enTexto(saveGeometry()));
  for (const QSplitter* s : cuerpo_->findChildren<QSplitter*>())
    c_.recuerdos.poner(memoria, s->objectName(), enTexto(s->saveState()));
}

// Centres it on its owner, else on the screen, within the bounds of the screen.
void Ventana::colocar(const QWidget* dueno) {
  const QRect pantalla = (dueno ? dueno->screen() : screen())->availableGeometry();
  const QRect sobre = dueno && dueno->isVisible() ? dueno->frameGeometry() : pantalla;
  QRect sitio(QPoint(), frameSize());
  sitio.moveCenter(sobre.center());
  sitio.moveLeft(
      std::max(pantalla.left(), std::min(sitio.left(), pantalla.right() - sitio.width())));
  sitio.moveTop(
      std::max(pantalla.top(), std::min(sitio.top(), pantalla.bottom() - sitio.height())));
  move(sitio.topLeft());
}

void Ventana::mostrarSobre(QWidget* dueno) {
  if (dueno && dueno != this) dueno_ = dueno->window();
  if (auto* suya = qobject_cast<Ventana*>(dueno_)) suya->quitarPista();
  const bool primera = !std::exchange(alcanzada_, true);
  if (primera) {
    ponerAlAlcance(*cuerpo_);
    nombrarEsquinas(*cuerpo_, t(kTxElegirTodo).remove(u'&'));
    oirRechazos();
    new ClicsEnVano(*this, *cuerpo_, [this](const QAction& a) { decirPorQueNo(a); });
    // It may have been left on a larger screen. The frame is known only once it is shown, and on
    // some desktops later still: a title bar is assumed.
    const QSize barra(0, style()->pixelMetric(QStyle::PM_TitleBarHeight));
    if (!isMaximized() && !isFullScreen())
      resize(size().boundedTo(screen()->availableSize() - barra));
    if (!conSitio_ || modal_) colocar(dueno_);
  }
  isMinimized() ? showNormal() : show();
  if (primera && !isMaximized() && !isFullScreen())
    crecer(size().boundedTo(screen()->availableSize() - (frameSize() - size())));
  raise();
  activateWindow();
}

bool Ventana::descargar() {
  close();
  return cerrada_;  // a nested close() returns true during QueryUnload
}

bool Ventana::cerrarSola() {
  if (auto* suya = qobject_cast<Ventana*>(dueno_)) suya->hijaCerradaSola();
  return descargar();
}

void Ventana::hijaCerradaSola() {
  hijaSola_ = c_.reloj.monotono();
}

bool Ventana::ejecutar() {
  QEventLoop bucle;
  const Retenida mientras(dueno_);
  modal_ = true;
  aceptada_ = false;
  setWindowModality(Qt::ApplicationModal);
  setWindowFlags(Qt::Dialog);         // the desktop keeps it above its owner
  setAttribute(Qt::WA_Moved, false);  // only its remembered size counts
  winId();
  if (dueno_) windowHandle()->setTransientParent(dueno_->windowHandle());
  mostrarSobre(dueno_);
  bool aceptada = false;
  connect(this, &Ventana::descargada, &bucle, [&] {
    aceptada = aceptada_;
    bucle.quit();
  });
  bucle.exec();
  return aceptada;
}

void Ventana::aceptar() {
  terminar(true);
}

void Ventana::rechazar() {
  terminar(false);
}

void Ventana::terminar(bool aceptada) {
  aceptada_ = aceptada;
  if (!close()) aceptada_ = false;
}

void Ventana::closeEvent(QCloseEvent* evento) {
  if (cerrada_) return evento->accept();
  if (!cerrarLoDeEncima()) return evento->ignore();
  // Accepting is an answer: nothing is left to be asked.
  {
    const TiraTrabajo::Pausa pausa(*trabajo_);  // the work asked about pauses until the answer
    if (!aceptada_ && QueryUnload()) return evento->ignore();
  }
  cerrada_ = true;
  trabajo_->parar();
  recordar();
  evento->accept();
  hide();
  Q_EMIT descargada(nombre_);
  volverAlDueno();
  if (retenida_ == 0) deleteLater();
}

Ventana* Ventana::modalEncima() const {
  const auto todas = c_.ventanas.abiertas();
  const auto suya = std::ranges::find_if(
      todas, [this](const Ventana* v) { return v->modal_ && v->dueno_ == this; });
  return suya == todas.end() ? nullptr : *suya;
}

// Modal windows with this owner; boxes, menus and calendars, which are its children.
bool Ventana::cerrarLoDeEncima() {
  while (Ventana* v = modalEncima())
    if (!v->descargar()) return false;
  for (QWidget* w : findChildren<QWidget*>())
    if (w->isWindow() && w->isVisible()) w->close();
  return true;
}

void Ventana::volverAlDueno() {
  if (!dueno_ || !dueno_->isVisible()) return;
  dueno_->raise();
  dueno_->activateWindow();
}

// Of the searchable lists, the one with the focus, else the leftmost and topmost.
void Ventana::irABuscar() {
  Buscable* primera = nullptr;
  const auto sitio = [this](Buscable* p) {
    const QPoint donde = p->control().mapTo(this, QPoint());
    return std::tuple(!p->control().isAncestorOf(focusWidget()), donde.x(), donde.y());
  };
  for (Buscable* p : listas_)
    if (p->seBusca() && (!primera || sitio(p) < sitio(primera))) primera = p;
  if (primera) primera->irABuscar();
}

void Ventana::keyPressEvent(QKeyEvent* evento) {
  if (evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter)
    return pulsarBoton(*evento);
  if (evento->key() == Qt::Key_F10 && evento->modifiers() == Qt::ShiftModifier && focusWidget())
    return pedirMenu(*focusWidget());
  if (decirPorQueNo(*evento)) return evento->accept();
  if (evento->key() != Qt::Key_Escape) return QWidget::keyPressEvent(evento);
  evento->accept();
  // Meant for a window that closed by itself, or to stop work that has just ended.
  const qint64 ahora = c_.reloj.monotono(), trabajo = trabajo_->vistaHasta();
  if (hijaSola_ >= 0 && ahora - hijaSola_ < kTrasHijaMs) return;
  if (!trabajo_->enMarcha() && trabajo >= 0 && ahora - trabajo < kTrasHijaMs) return;
  // Escape during work means to stop the work; what was done can still be undone then.
  trabajo_->enMarcha() ? trabajo_->parar() : static_cast<void>(close());
}

QString Ventana::ahoraNo(const QAction& accion) const {
  return c_.textos(trabajo_->enMarcha() ? kTxAhoraTrabaja : kTxAhoraNo,
                   {accion.text().remove(u'&')});
}

// Answers a disabled command: with its own reason if it has one. A failure on the strip isn't
// covered by it.
void Ventana::decirPorQueNo(const QAction& accion) {
  const QString suyo = accion.property(kPorQueNo).toString();
  if (tira_->estado() == Estado::Mal)
    QApplication::beep();
  else
    decirPista(suyo.isEmpty() ? ahoraNo(accion) : suyo);
}

bool Ventana::decirPorQueNo(const QKeyEvent& evento) {
  const QKeySequence tecla(evento.keyCombination());
  for (const QAction* a : findChildren<QAction*>()) {
    if (a->isEnabled() || !a->isVisible() || !a->shortcuts().contains(tecla)) continue;
    decirPorQueNo(*a);
    return true;
  }
  return false;
}

// From anywhere in the window, not only from inside the tabs.
void Ventana::pasarFicha(int pasos) {
  const auto todas = cuerpo_->findChildren<QTabWidget*>();
  const auto fichas = std::ranges::find_if(todas, &QWidget::isVisible);
  if (fichas == todas.end() || (*fichas)->count() == 0) return;
  const int cuantas = (*fichas)->count();
  (*fichas)->setCurrentIndex(((*fichas)->currentIndex() + cuantas + pasos) % cuantas);
}

// ShortcutOverride reaches the focused control before the key press itself.
bool Ventana::event(QEvent* evento) {
  if (evento->type() == QEvent::ShortcutOverride) teclea_ = focusWidget();
  return QWidget::event(evento);
}

// Presses the focused button, else the form's default one. A key that a control has used, so that
// the focus has moved, presses nothing.
void Ventana::pulsarBoton(QKeyEvent& evento) {
  evento.accept();
  if (cerrada_ || teclea_ != focusWidget()) return;
  if (auto* barra = qobject_cast<QTabBar*>(focusWidget())) return entrarEnFicha(*barra);
  auto* boton = qobject_cast<QAbstractButton*>(focusWidget());
  if (!qobject_cast<QPushButton*>(boton) && !qobject_cast<QToolButton*>(boton)) {
    const auto todos = cuerpo_->findChildren<QPushButton*>();
    const auto suyo = std::ranges::find_if(
        todos, [](const QPushButton* b) { return b->isDefault() && b->isVisible(); });
    boton = suyo == todos.end() ? nullptr : *suyo;
  }
  if (boton) boton->click();
}

// From its tab to the first control of the page.
void Ventana::entrarEnFicha(QTabBar& barra) {
  const auto* fichas = qobject_cast<QTabWidget*>(barra.parentWidget());
  const QWidget* hoja = fichas ? fichas->currentWidget() : nullptr;
  for (QWidget* w = barra.nextInFocusChain(); hoja && w != &barra; w = w->nextInFocusChain())
    if (hoja->isAncestorOf(w) && (w->focusPolicy() & Qt::TabFocus) && w->isEnabled() &&
        w->isVisible())
      return w->setFocus(Qt::TabFocusReason);
}

// Shift+F10 is for keyboards without a menu key.
void Ventana::pedirMenu(QWidget& control) {
  const QPoint donde = control.inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
  QContextMenuEvent menu(QContextMenuEvent::Keyboard, donde, control.mapToGlobal(donde));
  QApplication::sendEvent(&control, &menu);
}

void Ventana::decirBien(const QString& texto) {
  tira_->decir(Estado::Bien, texto);
}
void Ventana::decirDuda(const QString& texto, const QString& detalle) {
  tira_->decir(Estado::Duda, texto, detalle);
}
void Ventana::decirFallo(const QString& texto, const QString& detalle) {
  tira_->decir(Estado::Mal, texto, detalle);
}
void Ventana::decirFallo(const Error& error) {
  decirFallo(error.texto, error.numero == 0 ? QString() : QString::number(error.numero));
}

}  // namespace tarvo::ventanas
