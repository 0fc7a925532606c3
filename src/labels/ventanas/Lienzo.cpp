#include "labels/ventanas/Lienzo.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <numeric>

#include "core/ventanas/aspecto/Medidas.h"
#include "labels/ventanas/Regla.h"

namespace tarvo::labels {

using namespace ventanas;

namespace {

constexpr int kCerca = 5;        // pixels within which an edge is grabbed and a field snaps
constexpr int kPasoLargo = 8;    // dots of an arrow with Shift: a millimetre
constexpr int kPasoRueda = 120;  // of a notch of the wheel
constexpr double kZoomRueda = 1.25;

}  // namespace

Lienzo::Lienzo(QWidget* padre)
    : QAbstractScrollArea(padre),
      reglaX_(new Regla(Qt::Horizontal, this)),
      reglaY_(new Regla(Qt::Vertical, this)) {
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setMouseTracking(true);
  setViewportMargins(Regla::grueso(), Regla::grueso(), 0, 0);
}

void Lienzo::poner(const Formato& formato, const LectorTextos& textos) {
  formato_ = formato;
  textos_ = textos;
  arrastre_ = Arrastre::Nada;
  dibujados_.resize(formato_.campos.size());
  cajas_.resize(formato_.campos.size());
  for (size_t i = 0; i < cajas_.size(); ++i) recalcular(i);
  std::erase_if(elegidos_, [this](size_t i) { return i >= formato_.campos.size(); });
  medir();
  viewport()->update();
}

void Lienzo::recalcular(size_t cual) {
  const CampoEtiqueta& c = formato_.campos[cual];
  cajas_[cual] = cajaDe(c, muestraDe(c, textos_));
}

void Lienzo::ponerZoom(int porCiento) {
  const int nuevo = std::clamp(porCiento, kZoomMenor, kZoomMayor);
  if (nuevo == zoom_) return;
  const QPointF medio = enPuntos(viewport()->rect().center());
  zoom_ = nuevo;
  medir();
  const QPointF falta = enVista(medio) - QPointF(viewport()->rect().center());
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() + qRound(falta.x()));
  verticalScrollBar()->setValue(verticalScrollBar()->value() + qRound(falta.y()));
  reposar();
  viewport()->update();
  Q_EMIT zoomCambiado(zoom_);
}

void Lienzo::elegir(std::vector<size_t> cuales) {
  std::erase_if(cuales, [this](size_t i) { return i >= formato_.campos.size(); });
  std::ranges::sort(cuales);
  if (cuales == elegidos_) return;
  elegidos_ = std::move(cuales);
  if (!elegidos_.empty() && arrastre_ == Arrastre::Nada) hacerVisible(elegidos_.front());
  viewport()->update();
  Q_EMIT eleccion(elegidos_);
}

// --- places

QSize Lienzo::tamanoVisto() const {
  const int aire = 2 * escalar(kSeparacion);
  return {qRound(kAnchoPapel * escala()) + aire, qRound(kLargoPapel * escala()) + aire};
}

// A paper smaller than the view is in its middle.
QPoint Lienzo::origen() const {
  const QSize falta = viewport()->size() - tamanoVisto();
  const int aire = escalar(kSeparacion);
  return {aire + (falta.width() > 0 ? falta.width() / 2 : -horizontalScrollBar()->value()),
          aire + (falta.height() > 0 ? falta.height() / 2 : -verticalScrollBar()->value())};
}

QPointF Lienzo::enVista(QPointF punto) const {
  return origen() + (punto + QPointF(kAnchoPapel - formato_.x0, formato_.y0)) * escala();
}

QPointF Lienzo::enPuntos(QPointF vista) const {
  return (vista - origen()) / escala() - QPointF(kAnchoPapel - formato_.x0, formato_.y0);
}

QRect Lienzo::vistaDe(const QRect& puntos) const {
  return QRectF(enVista(puntos.topLeft()), QSizeF(puntos.size()) * escala()).toAlignedRect();
}

void Lienzo::hacerVisible(size_t cual) {
  const QRect caja = vistaDe(cajas_[cual]), vista = viewport()->rect();
  const auto correr = [](QScrollBar* barra, int desde, int hasta, int largo) {
    const int falta = desde < 0 ? desde : std::min(desde, std::max(0, hasta - largo));
    if (falta != 0) barra->setValue(barra->value() + falta);
  };
  correr(horizontalScrollBar(), caja.left(), caja.right(), vista.width());
  correr(verticalScrollBar(), caja.top(), caja.bottom(), vista.height());
}

// The topmost field there; a chosen one first, so that it can be moved from below another. -1 if
// there is none. A frame is only where its lines are.
int Lienzo::bajo(QPointF vista) const {
  const int cerca = escalar(kCerca) / 2 + 1;
  const auto toca = [&](size_t i) {
    const QRect v = vistaDe(cajas_[i]).adjusted(-cerca, -cerca, cerca, cerca);
    if (!v.contains(vista.toPoint())) return false;
    const CampoEtiqueta& c = formato_.campos[i];
    if (c.tipo != TipoCampo::Rectangulo) return true;
    const int linea = qRound(c.Esp * escala()) + 2 * cerca;
    return !v.adjusted(linea, linea, -linea, -linea).contains(vista.toPoint());
  };
  for (const size_t i : elegidos_)
    if (toca(i)) return static_cast<int>(i);
  for (size_t i = cajas_.size(); i-- > 0;)
    if (toca(i)) return static_cast<int>(i);
  return -1;
}

// The handle by which the size of a field is changed; none for texts.
QRect Lienzo::asa(size_t cual) const {
  CampoEtiqueta c = formato_.campos[cual];
  if (!estirar(c, {})) return {};
  QPoint donde = cajas_[cual].bottomRight() + QPoint(1, 1);
  if (c.tipo == TipoCampo::Rectangulo) donde = {c.X2 + 1, c.Y2 + 1};
  const int lado = escalar(kHueco);
  const QPoint v = enVista(donde).toPoint();
  return {v.x() - lado / 2, v.y() - lado / 2, lado, lado};
}

Lienzo::Arrastre Lienzo::quePuede(QPointF vista) const {
  if (elegidos_.size() == 1 && asa(elegidos_.front()).contains(vista.toPoint()))
    return Arrastre::Esquina;
  if (bajo(vista) >= 0) return Arrastre::Campos;
  const QRectF area(enVista({0, 0}), QSizeF(areaDe(formato_).size()) * escala());
  const int cerca = escalar(kCerca);
  if (std::abs(vista.x() - area.left()) <= cerca && vista.y() >= area.top() - cerca &&
      vista.y() <= area.bottom() + cerca)
    return Arrastre::BordeX;
  if (std::abs(vista.y() - area.top()) <= cerca && vista.x() >= area.left() - cerca &&
      vista.x() <= area.right() + cerca)
    return Arrastre::BordeY;
  return Arrastre::Marco;
}

// --- the pointer

void Lienzo::mousePressEvent(QMouseEvent* evento) {
  if (evento->button() != Qt::LeftButton) return;
  const QPointF vista = evento->position();
  arrastre_ = quePuede(vista);
  empezado_ = false;
  desde_ = enPuntos(vista);
  antes_ = formato_;
  elegidosAntes_ = elegidos_;
  const bool mas = evento->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier);
  if (arrastre_ == Arrastre::Campos) {
    const auto cual = static_cast<size_t>(bajo(vista));
    const bool estaba = std::ranges::find(elegidos_, cual) != elegidos_.end();
    std::vector<size_t> nuevos = mas ? elegidos_ : std::vector<size_t>{};
    if (mas && estaba)
      std::erase(nuevos, cual);
    else
      nuevos.push_back(cual);
    pulsado_ = !mas && estaba ? std::optional(cual) : std::nullopt;
    if (mas || !estaba) elegir(nuevos);
  } else if (arrastre_ == Arrastre::Marco) {
    marco_ = QRect(vista.toPoint(), QSize());
    if (!mas) elegir({}), elegidosAntes_.clear();
  }
}

void Lienzo::mouseMoveEvent(QMouseEvent* evento) {
  const QPointF vista = evento->position(), punto = enPuntos(vista);
  const QPoint entero(static_cast<int>(std::floor(punto.x())),
                      static_cast<int>(std::floor(punto.y())));
  Q_EMIT apuntado(entero);
  reglaX_->senalar(entero.x());
  reglaY_->senalar(entero.y());
  if (evento->buttons() & Qt::LeftButton) return arrastrar(vista, evento->modifiers());
  static constexpr Qt::CursorShape kFormas[] = {Qt::ArrowCursor,     Qt::SizeAllCursor,
                                                Qt::SizeFDiagCursor, Qt::SizeHorCursor,
                                                Qt::SizeVerCursor,   Qt::ArrowCursor};
  viewport()->setCursor(kFormas[static_cast<int>(quePuede(vista))]);
}

void Lienzo::arrastrar(QPointF vista, Qt::KeyboardModifiers mandos) {
  if (arrastre_ == Arrastre::Nada) return;
  const QPointF ahora = enPuntos(vista), falta = (ahora - desde_) * escala();
  if (!empezado_ && falta.manhattanLength() < QApplication::startDragDistance()) return;
  empezado_ = true;
  const QPoint d = (ahora - desde_).toPoint();
  const QPointF papel = (vista - origen()) / escala();
  switch (arrastre_) {
    case Arrastre::Campos:
      return moverCampos(d, iman_ && !(mandos & Qt::AltModifier));
    case Arrastre::Esquina: {
      const size_t i = elegidos_.front();
      formato_.campos[i] = antes_.campos[i];
      estirar(formato_.campos[i], d);
      recalcular(i);
      break;
    }
    case Arrastre::BordeX:
      formato_.x0 = std::clamp(kAnchoPapel - qRound(papel.x()), 1, kAnchoPapel);
      break;
    case Arrastre::BordeY:
      formato_.y0 = std::clamp(qRound(papel.y()), 0, kLargoPapel);
      break;
    default: {
      marco_ = QRect(enVista(desde_).toPoint(), vista.toPoint()).normalized();
      std::vector<size_t> dentro = elegidosAntes_;
      for (size_t i = 0; i < cajas_.size(); ++i)
        if (marco_.contains(vistaDe(cajas_[i])) && std::ranges::find(dentro, i) == dentro.end())
          dentro.push_back(i);
      elegir(dentro);
    }
  }
  reposar();
  viewport()->update();
}

// Only what has changed is painted again.
void Lienzo::moverCampos(QPoint cuanto, bool pegarse) {
  QRegion sucio;
  const int borde = escalar(kHueco);
  const auto ensuciar = [&](size_t i) {
    sucio += vistaDe(cajas_[i]).adjusted(-borde, -borde, borde, borde);
  };
  QRect juntas;
  for (const size_t i : elegidos_) {
    ensuciar(i);
    juntas |= cajaDe(antes_.campos[i], muestraDe(antes_.campos[i], textos_));
  }
  sucio += guias();
  guiaX_ = guiaY_ = {};
  if (pegarse) {
    std::vector<QRect> otras{areaDe(formato_)};
    for (size_t i = 0; i < cajas_.size(); ++i)
      if (std::ranges::find(elegidos_, i) == elegidos_.end()) otras.push_back(cajas_[i]);
    const int cerca = std::max(1, qRound(escalar(kCerca) / escala()));
    const Iman iman = imantar(juntas.translated(cuanto), otras, cerca);
    cuanto += iman.cuanto;
    guiaX_ = iman.x, guiaY_ = iman.y;
  }
  for (const size_t i : elegidos_) {
    formato_.campos[i] = antes_.campos[i];
    mover(formato_.campos[i], cuanto);
    recalcular(i);
    ensuciar(i);
  }
  if (!elegidos_.empty()) {
    const CampoEtiqueta& c = formato_.campos[elegidos_.front()];
    Q_EMIT movido({c.X, c.Y});
  }
  viewport()->update(sucio + guias());
}

// The lines to which fields have snapped, in the viewport.
QRegion Lienzo::guias() const {
  QRegion r;
  if (guiaX_)
    r += QRect(static_cast<int>(enVista({*guiaX_ * 1.0, 0}).x()), 0, 1, viewport()->height());
  if (guiaY_)
    r += QRect(0, static_cast<int>(enVista({0, *guiaY_ * 1.0}).y()), viewport()->width(), 1);
  return r;
}

void Lienzo::mouseReleaseEvent(QMouseEvent* evento) {
  if (evento->button() == Qt::LeftButton) soltar();
}

// A click on one of several chosen fields chooses it alone; a drag moves them all.
void Lienzo::soltar() {
  const bool cambia = empezado_ && arrastre_ != Arrastre::Marco && !(formato_ == antes_);
  const bool solo = !empezado_ && arrastre_ == Arrastre::Campos && pulsado_;
  arrastre_ = Arrastre::Nada;
  if (solo) elegir({*pulsado_});
  empezado_ = false;
  guiaX_ = guiaY_ = {};
  marco_ = {};
  viewport()->update();
  if (cambia) Q_EMIT hecho(formato_, false);
}

void Lienzo::abandonar() {
  formato_ = antes_;
  for (size_t i = 0; i < cajas_.size(); ++i) recalcular(i);
  empezado_ = false;
  pulsado_.reset();
  soltar();
  reposar();
}

void Lienzo::mouseDoubleClickEvent(QMouseEvent* evento) {
  if (evento->button() != Qt::LeftButton || bajo(evento->position()) < 0) return;
  elegir({static_cast<size_t>(bajo(evento->position()))});
  arrastre_ = Arrastre::Nada;
  Q_EMIT pidePropiedades();
}

void Lienzo::wheelEvent(QWheelEvent* evento) {
  if (!(evento->modifiers() & Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(evento);
  const double muescas = static_cast<double>(evento->angleDelta().y()) / kPasoRueda;
  ponerZoom(qRound(zoom_ * std::pow(kZoomRueda, muescas)));
  evento->accept();
}

// --- the keyboard

void Lienzo::keyPressEvent(QKeyEvent* evento) {
  const auto mandos = evento->modifiers() & ~Qt::KeypadModifier;
  const int total = static_cast<int>(formato_.campos.size());
  const auto irA = [&](int pasos) {
    if (total == 0) return;
    const int aqui = elegidos_.empty() ? (pasos > 0 ? -1 : 0) : static_cast<int>(elegidos_.front());
    elegir({static_cast<size_t>((aqui + pasos + total) % total)});
  };
  const int largo = mandos & Qt::ShiftModifier ? kPasoLargo : 1;
  QPoint cuanto;
  switch (evento->key()) {
    case Qt::Key_Left:
      cuanto = {-largo, 0};
      break;
    case Qt::Key_Right:
      cuanto = {largo, 0};
      break;
    case Qt::Key_Up:
      cuanto = {0, -largo};
      break;
    case Qt::Key_Down:
      cuanto = {0, largo};
      break;
    case Qt::Key_PageDown:
      return irA(1);
    case Qt::Key_PageUp:
      return irA(-1);
    case Qt::Key_Escape:
      if (arrastre_ == Arrastre::Nada) return QAbstractScrollArea::keyPressEvent(evento);
      return abandonar();
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (!elegidos_.empty()) Q_EMIT pidePropiedades();
      return;
    default:
      if (!evento->matches(QKeySequence::SelectAll))
        return QAbstractScrollArea::keyPressEvent(evento);
      std::vector<size_t> todos(formato_.campos.size());
      std::iota(todos.begin(), todos.end(), size_t{0});
      return elegir(std::move(todos));
  }
  if (elegidos_.empty()) return QAbstractScrollArea::keyPressEvent(evento);
  if (mandos & Qt::AltModifier) return evento->ignore();
  Formato nuevo = formato_;
  for (const size_t i : elegidos_)
    mandos& Qt::ControlModifier ? static_cast<void>(estirar(nuevo.campos[i], cuanto))
                                : mover(nuevo.campos[i], cuanto);
  const CampoEtiqueta& c = nuevo.campos[elegidos_.front()];
  Q_EMIT movido({c.X, c.Y});
  Q_EMIT hecho(nuevo, evento->isAutoRepeat());
  if (!elegidos_.empty()) hacerVisible(elegidos_.front());
}

}  // namespace tarvo::labels
