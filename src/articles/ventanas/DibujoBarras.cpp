#include "articles/ventanas/DibujoBarras.h"

#include <zint.h>

#include <QPainter>
#include <memory>

namespace tarvo::articles {

namespace {

constexpr double kProporcion = 0.55;  // ratio of height to width
constexpr double kSilencio = 0.06;    // quiet zone on each side, as a part of the width

struct Soltar {
  void operator()(zint_symbol* simbolo) const { ZBarcode_Delete(simbolo); }
};
using Simbolo = std::unique_ptr<zint_symbol, Soltar>;

bool esEan(const QString& codigo) {
  return (codigo.size() == 8 || codigo.size() == 13) &&
         std::ranges::all_of(codigo, [](QChar c) { return c.isDigit(); });
}

// The library computes the check digit itself, and would refuse a different one.
Simbolo codificar(const QString& codigo) {
  Simbolo s(ZBarcode_Create());
  if (!s || codigo.isEmpty()) return nullptr;
  s->symbology = esEan(codigo) ? BARCODE_EANX : BARCODE_CODE128;
  s->show_hrt = 0;
  const QByteArray datos = (esEan(codigo) ? codigo.chopped(1) : codigo).toUtf8();
  const auto* bytes = reinterpret_cast<const unsigned char*>(datos.constData());
  const int hecho =
      ZBarcode_Encode_and_Buffer_Vector(s.get(), bytes, static_cast<int>(datos.size()), 0);
  return hecho < ZINT_ERROR && s->vector ? std::move(s) : nullptr;
}

}  // namespace

QPixmap dibujarBarras(const QString& codigo, int ancho, qreal escalaPantalla) {
  const Simbolo s = codificar(codigo);
  if (!s || s->vector->width <= 0) return {};
  const QSize lado(ancho, static_cast<int>(ancho * kProporcion));
  QPixmap dibujo(lado * escalaPantalla);
  dibujo.setDevicePixelRatio(escalaPantalla);
  dibujo.fill(Qt::white);
  QPainter p(&dibujo);
  const double margen = ancho * kSilencio;
  const double x = (ancho - 2 * margen) / static_cast<double>(s->vector->width);
  const int alto = lado.height() - p.fontMetrics().height() - static_cast<int>(margen);
  const double y = (alto - margen) / static_cast<double>(s->vector->height);
  for (const zint_vector_rect* r = s->vector->rectangles; r; r = r->next)
    p.fillRect(QRectF(margen + r->x * x, margen + r->y * y, r->width * x, r->height * y),
               Qt::black);
  p.setPen(Qt::black);
  p.drawText(QRect(0, alto, ancho, lado.height() - alto), Qt::AlignCenter, codigo);
  return dibujo;
}

}  // namespace tarvo::articles
