#include <QPainter>
#include <QScrollBar>

#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "labels/ventanas/Lienzo.h"
#include "labels/ventanas/Regla.h"

namespace tarvo::labels {

using namespace ventanas;

namespace {

constexpr int kZoomRejilla = 300;  // per cent from which millimetres are seen

}  // namespace

void Lienzo::medir() {
  const QSize vista = viewport()->size(), falta = tamanoVisto() - vista;
  horizontalScrollBar()->setRange(0, std::max(0, falta.width()));
  horizontalScrollBar()->setPageStep(vista.width());
  verticalScrollBar()->setRange(0, std::max(0, falta.height()));
  verticalScrollBar()->setPageStep(vista.height());
  const int paso = escalar(kAltoFila);
  horizontalScrollBar()->setSingleStep(paso);
  verticalScrollBar()->setSingleStep(paso);
  reposar();
}

// The rulers follow what is seen.
void Lienzo::reposar() {
  const QPointF cero = enVista({0, 0});
  const int g = Regla::grueso();
  const QRect v = viewport()->geometry();
  reglaX_->setGeometry(v.left(), v.top() - g, v.width(), g);
  reglaY_->setGeometry(v.left() - g, v.top(), g, v.height());
  reglaX_->poner(cero.x(), escala(), 0, formato_.x0);
  reglaY_->poner(cero.y(), escala(), 0, kLargoPapel - formato_.y0);
}

void Lienzo::resizeEvent(QResizeEvent*) {
  medir();
}

void Lienzo::scrollContentsBy(int, int) {
  reposar();
  viewport()->update();
}

// A text is drawn once for each zoom; lines and frames are drawn as they are.
const QPixmap& Lienzo::dibujo(size_t cual) {
  CampoEtiqueta c = formato_.campos[cual];
  c.X = c.Y = 0;
  const QString contenido = muestraDe(c, textos_);
  Dibujado& d = dibujados_[cual];
  if (d.zoom == zoom_ && d.como == c && d.contenido == contenido) return d.imagen;
  const Mancha m = manchaDe(c, contenido, *fuente_);
  QImage puntos(m.caja.size(), QImage::Format_ARGB32_Premultiplied);
  puntos.fill(Qt::transparent);
  for (int y = 0; y < puntos.height(); ++y)
    for (int x = 0; x < puntos.width(); ++x)
      if (m.negro(x, y)) puntos.setPixel(x, y, qRgb(0, 0, 0));
  d = {c, contenido, zoom_,
       QPixmap::fromImage(puntos.scaled((QSizeF(puntos.size()) * escala()).toSize()))};
  return d.imagen;
}

void Lienzo::pintarCampo(QPainter& p, size_t cual) {
  const CampoEtiqueta& c = formato_.campos[cual];
  const QRect& caja = cajas_[cual];
  const auto llenar = [&](const QRect& r) {
    p.fillRect(QRectF(enVista(r.topLeft()), QSizeF(r.size()) * escala()), Qt::black);
  };
  if (c.tipo == TipoCampo::LineaGrafica) return llenar(caja);
  if (c.tipo == TipoCampo::Rectangulo) {
    const int e = std::min({c.Esp, caja.width(), caja.height()});
    llenar({caja.left(), caja.top(), caja.width(), e});
    llenar({caja.left(), caja.bottom() - e + 1, caja.width(), e});
    llenar({caja.left(), caja.top(), e, caja.height()});
    llenar({caja.right() - e + 1, caja.top(), e, caja.height()});
    return;
  }
  if (fuente_ && !caja.isEmpty()) p.drawPixmap(enVista(caja.topLeft()).toPoint(), dibujo(cual));
}

void Lienzo::pintarFondo(QPainter& p) {
  const QRect papel(origen(), (QSizeF(kAnchoPapel, kLargoPapel) * escala()).toSize());
  p.fillRect(viewport()->rect(), colorDe(Tinte::BaseAlterna));
  p.fillRect(papel, Qt::white);
  p.setPen(QColor(0, 0, 0, 24));
  for (int mm = 0; zoom_ >= kZoomRejilla && mm * kPuntosPorMm <= kLargoPapel; ++mm) {
    const QPoint v = enVista({mm * 1.0 * kPuntosPorMm, mm * 1.0 * kPuntosPorMm}).toPoint();
    if (v.x() < papel.right()) p.drawLine(v.x(), papel.top(), v.x(), papel.bottom());
    if (v.y() < papel.bottom()) p.drawLine(papel.left(), v.y(), papel.right(), v.y());
  }
}

void Lienzo::paintEvent(QPaintEvent* evento) {
  QPainter p(viewport());
  pintarFondo(p);
  const QRegion& sucio = evento->region();
  for (size_t i = 0; i < cajas_.size(); ++i)
    if (sucio.intersects(vistaDe(cajas_[i]).adjusted(-1, -1, 1, 1))) pintarCampo(p, i);
  // What is outside the printed area isn't printed.
  const QRect area = vistaDe(areaDe(formato_));
  QColor velo = colorDe(Tinte::BaseAlterna);
  velo.setAlpha(170);
  for (const QRect& r : QRegion(viewport()->rect()) - QRegion(area)) p.fillRect(r, velo);
  p.setPen(colorDe(Tinte::Borde));
  p.drawRect(area.adjusted(-1, -1, 0, 0));
  const QColor acento = colorDe(Tinte::Acento);
  for (const size_t i : elegidos_) {
    p.setPen(QPen(acento, kFoco));
    p.drawRect(vistaDe(cajas_[i]).adjusted(-2, -2, 1, 1));
    if (elegidos_.size() == 1) p.fillRect(asa(i), acento);
  }
  p.setPen(QPen(acento, 1, Qt::DashLine));
  for (const QRect& guia : guias()) p.drawLine(guia.topLeft(), guia.bottomRight());
  if (marco_.isValid()) p.drawRect(marco_);
}

}  // namespace tarvo::labels
