#include "devices/ventanas/LienzoTeclado.h"

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>

#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"

namespace tarvo::devices {

using namespace Qt::StringLiterals;
using ventanas::colorDe;
using ventanas::Tinte;

namespace {

constexpr QSize kTamano{900, 520}, kMenor{420, 260};
constexpr int kMarca = 3;  // width of the frame of the current key

}  // namespace

LienzoTeclado::LienzoTeclado(QWidget* padre) : QWidget(padre) {
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

QSize LienzoTeclado::sizeHint() const {
  return {ventanas::escalar(kTamano.width()), ventanas::escalar(kTamano.height())};
}

QSize LienzoTeclado::minimumSizeHint() const {
  return {ventanas::escalar(kMenor.width()), ventanas::escalar(kMenor.height())};
}

void LienzoTeclado::poner(const Geometria& geometria, const QString& modelo) {
  geometria_ = geometria;
  modelo_ = modelo;
  escala_ = Escala::paraCaber(geometria_, size());
  fondo_ = {};
  update();
}

void LienzoTeclado::ponerCaras(std::vector<CaraDeTecla> caras) {
  caras_ = std::move(caras);
  actual_ = std::clamp(actual_, 1, std::max(1, teclas()));
  fondo_ = {};
  update();
}

void LienzoTeclado::irA(int tecla) {
  if (tecla < 1 || tecla > teclas()) return;
  repintar(actual_);
  actual_ = tecla;
  repintar(actual_);
  Q_EMIT actualCambiada(tecla);
  setAccessibleDescription(cara(tecla).queHace + u' ' + cara(tecla).queLePasa);
  QAccessibleEvent dicho(this, QAccessible::DescriptionChanged);
  QAccessible::updateAccessibility(&dicho);
}

int LienzoTeclado::teclaEnGlobal(const QPoint& global) const {
  return isVisible() && rect().contains(mapFromGlobal(global)) ? teclaEnPunto(mapFromGlobal(global))
                                                               : 0;
}

void LienzoTeclado::apuntar(int tecla) {
  if (tecla == destino_) return;
  repintar(destino_);
  destino_ = tecla;
  repintar(destino_);
}

void LienzoTeclado::levantar() {
  if (teclas() == 0 || cara(actual_).nula) return;
  levantada_ = actual_;
  apuntar(actual_);
}

// --- painting

void LienzoTeclado::repintar(int tecla) {
  if (tecla < 1 || tecla > teclas()) return;
  update(sitio(tecla).toAlignedRect().adjusted(-kMarca, -kMarca, kMarca, kMarca));
}

void LienzoTeclado::pintarFondo() {
  fondo_ = QPixmap(size() * devicePixelRatioF());
  fondo_.setDevicePixelRatio(devicePixelRatioF());
  fondo_.fill(colorDe(Tinte::Fondo));
  QPainter p(&fondo_);
  dibujarTeclado(p, geometria_, escala_, caras_, modelo_);
}

QRect LienzoTeclado::zonaFantasma() const {
  const QSizeF s = fantasma_.deviceIndependentSize();
  return QRectF(raton_ - QPointF(s.width() / 2, s.height() / 2), s)
      .toAlignedRect()
      .adjusted(-1, -1, 1, 1);
}

void LienzoTeclado::paintEvent(QPaintEvent* evento) {
  if (fondo_.isNull()) pintarFondo();
  QPainter p(this);
  const double razon = fondo_.devicePixelRatio();
  for (const QRect& r : evento->region())
    p.drawPixmap(r, fondo_, QRectF(r.topLeft() * razon, r.size() * razon).toRect());
  if (teclas() == 0) return;
  p.setRenderHint(QPainter::Antialiasing);
  const auto marco = [&](int tecla, Tinte tinte, Qt::PenStyle trazo) {
    if (tecla < 1 || tecla > teclas()) return;
    p.setPen(QPen(colorDe(tinte), kMarca, trazo));
    p.setBrush(Qt::NoBrush);
    const QRectF r = sitio(tecla);
    p.drawRoundedRect(r, r.height() * 0.12, r.height() * 0.12);
  };
  marco(actual_, hasFocus() ? Tinte::Acento : Tinte::TextoPalido, Qt::SolidLine);
  marco(levantada_, Tinte::Duda, Qt::DotLine);
  marco(destino_, Tinte::Bien, Qt::DashLine);
  if (!arrastra_) return;
  p.setOpacity(0.85);
  p.drawPixmap(zonaFantasma().topLeft() + QPoint(1, 1), fantasma_);
}

void LienzoTeclado::resizeEvent(QResizeEvent* /*evento*/) {
  escala_ = Escala::paraCaber(geometria_, size());
  fondo_ = {};
}

void LienzoTeclado::changeEvent(QEvent* evento) {
  if (evento->type() == QEvent::PaletteChange || evento->type() == QEvent::StyleChange ||
      evento->type() == QEvent::FontChange) {
    fondo_ = {};
    update();
  }
  QWidget::changeEvent(evento);
}

void LienzoTeclado::focusInEvent(QFocusEvent* evento) {
  QWidget::focusInEvent(evento);
  repintar(actual_);
}

void LienzoTeclado::focusOutEvent(QFocusEvent* evento) {
  QWidget::focusOutEvent(evento);
  if (levantada_ > 0 && evento->reason() != Qt::ActiveWindowFocusReason) soltar();
  repintar(actual_);
}

// --- the mouse

bool LienzoTeclado::event(QEvent* evento) {
  if (evento->type() == QEvent::ToolTip) {
    const auto* ayuda = static_cast<QHelpEvent*>(evento);
    const int tecla = teclaEnPunto(ayuda->pos());
    if (tecla < 1 || tecla > teclas()) {
      QToolTip::hideText();
    } else {
      const CaraDeTecla& c = cara(tecla);
      QToolTip::showText(ayuda->globalPos(),
                         c.queLePasa.isEmpty() ? c.queHace : c.queHace + u'\n' + c.queLePasa, this,
                         sitio(tecla).toAlignedRect());
    }
    return true;
  }
  return QWidget::event(evento);
}

void LienzoTeclado::mousePressEvent(QMouseEvent* evento) {
  const int tecla = teclaEnPunto(evento->position());
  if (levantada_ > 0) soltar();
  if (tecla == 0) return;
  irA(tecla);
  if (evento->button() != Qt::LeftButton) return;
  apretada_ = tecla;
  desde_ = evento->position();
}

void LienzoTeclado::mouseMoveEvent(QMouseEvent* evento) {
  if (apretada_ == 0) return;
  if (!arrastra_) {
    if ((evento->position() - desde_).manhattanLength() < QApplication::startDragDistance() ||
        cara(apretada_).nula)
      return;
    arrastra_ = true;
    raton_ = evento->position();
    fantasma_ = QPixmap((sitio(apretada_).size() * devicePixelRatioF()).toSize());
    fantasma_.setDevicePixelRatio(devicePixelRatioF());
    fantasma_.fill(Qt::transparent);
    QPainter p(&fantasma_);
    p.setRenderHint(QPainter::Antialiasing);
    dibujarTecla(p, {{0, 0}, sitio(apretada_).size()}, cara(apretada_));
  }
  update(zonaFantasma());
  raton_ = evento->position();
  update(zonaFantasma());
  apuntar(teclaEnPunto(raton_));
  Q_EMIT arrastrada(evento->globalPosition().toPoint());
}

void LienzoTeclado::mouseReleaseEvent(QMouseEvent* evento) {
  const int de = apretada_, a = destino_;
  const bool arrastraba = arrastra_;
  soltar();
  if (!arrastraba) return;
  if (a > 0)
    Q_EMIT mover(de, a);
  else
    Q_EMIT soltadaFuera(de, evento->globalPosition().toPoint());
}

// Ends a drag or a carrying; the key stays where it was.
void LienzoTeclado::soltar() {
  apretada_ = levantada_ = destino_ = 0;
  if (std::exchange(arrastra_, false)) Q_EMIT arrastrada({});
  fantasma_ = {};
  update();
}

void LienzoTeclado::mouseDoubleClickEvent(QMouseEvent* evento) {
  if (teclaEnPunto(evento->position()) > 0) Q_EMIT editar(actual_);
}

void LienzoTeclado::contextMenuEvent(QContextMenuEvent* evento) {
  if (teclas() == 0) return;
  const bool raton = evento->reason() == QContextMenuEvent::Mouse;
  Q_EMIT menuPedido(raton ? evento->globalPos()
                          : mapToGlobal(sitio(actual_).bottomLeft().toPoint()));
}

// --- the keyboard

// Arrows, Home and End; with a lifted key they move its target.
bool LienzoTeclado::moverse(const QKeyEvent& evento) {
  const int desde = levantada_ > 0 ? destino_ : actual_;
  int a = 0;
  switch (evento.key()) {
    case Qt::Key_Left:
      a = vecina(geometria_, desde, Rumbo::Izquierda);
      break;
    case Qt::Key_Right:
      a = vecina(geometria_, desde, Rumbo::Derecha);
      break;
    case Qt::Key_Up:
      a = vecina(geometria_, desde, Rumbo::Arriba);
      break;
    case Qt::Key_Down:
      a = vecina(geometria_, desde, Rumbo::Abajo);
      break;
    case Qt::Key_Home:
      a = 1;
      break;
    case Qt::Key_End:
      a = teclas();
      break;
    default:
      return false;
  }
  levantada_ > 0 ? apuntar(a) : irA(a);
  return true;
}

void LienzoTeclado::keyPressEvent(QKeyEvent* evento) {
  if (teclas() == 0) return QWidget::keyPressEvent(evento);
  const bool entra = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
  const bool suelta = levantada_ > 0 && (entra || evento->key() == Qt::Key_Escape);
  if (arrastra_ && evento->key() == Qt::Key_Escape) return soltar();
  if (suelta) {
    const int de = levantada_, a = destino_;
    soltar();
    if (entra && a > 0) Q_EMIT mover(de, a);
    return;
  }
  if (!(evento->modifiers() & ~Qt::KeypadModifier) && moverse(*evento)) return;
  if (entra) {
    Q_EMIT editar(actual_);
    return;
  }
  const QString texto = evento->text();
  if (!texto.isEmpty() && texto[0].isPrint() && texto[0] != u' ' &&
      !(evento->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
    Q_EMIT tecleado(texto);
    return;
  }
  QWidget::keyPressEvent(evento);
}

}  // namespace tarvo::devices
