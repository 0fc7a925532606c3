#include "articles/ventanas/DibujoBarras.h"

#include <QPainter>

#include "articles/CodigoBarras.h"

namespace tarvo::articles {

namespace {

constexpr double kProporcion = 0.55;  // ratio of height to width
constexpr double kSilencio = 0.06;    // quiet zone on each side, as a part of the width

}  // namespace

QPixmap dibujarBarras(const QString& codigo, int ancho, qreal escalaPantalla) {
  const std::vector<bool> modulos = modulosBarras(codigo);
  if (modulos.empty()) return {};
  const QSize lado(ancho, static_cast<int>(ancho * kProporcion));
  QPixmap dibujo(lado * escalaPantalla);
  dibujo.setDevicePixelRatio(escalaPantalla);
  dibujo.fill(Qt::white);
  QPainter p(&dibujo);
  const double margen = ancho * kSilencio;
  const double x = (ancho - 2 * margen) / static_cast<double>(modulos.size());
  const int alto = lado.height() - p.fontMetrics().height() - static_cast<int>(margen);
  // Bars side by side are one, without a seam between them.
  for (size_t i = 0, n = 1; i < modulos.size(); i += n, n = 1) {
    while (i + n < modulos.size() && modulos[i + n] == modulos[i]) ++n;
    if (modulos[i])
      p.fillRect(QRectF(margen + static_cast<double>(i) * x, margen, static_cast<double>(n) * x,
                        alto - margen),
                 Qt::black);
  }
  p.setPen(Qt::black);
  p.drawText(QRect(0, alto, ancho, lado.height() - alto), Qt::AlignCenter, codigo);
  return dibujo;
}

}  // namespace tarvo::articles
