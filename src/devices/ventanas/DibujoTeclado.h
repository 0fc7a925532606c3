// A keyboard as a drawing, in the colours of the current theme.
#pragma once

#include <QPainter>
#include <span>

#include "devices/TecladoEditado.h"
#include "devices/ventanas/Geometria.h"

namespace tarvo::devices {

// From keys to pixels.
struct Escala {
  double x = 1, y = 1;
  QPointF origen;
  // The keyboard as large as it fits, in the middle; its keys are between narrow and wide.
  static Escala paraCaber(const Geometria& geometria, QSizeF sitio);
  QRectF operator()(const QRectF& r) const {
    return {origen.x() + r.x() * x, origen.y() + r.y() * y, r.width() * x, r.height() * y};
  }
  QPointF inversa(QPointF p) const { return {(p.x() - origen.x()) / x, (p.y() - origen.y()) / y}; }
};

// The casing, the display with the model's name, and all keys.
void dibujarTeclado(QPainter& pintor, const Geometria& geometria, const Escala& escala,
                    std::span<const CaraDeTecla> caras, const QString& modelo);
// One key in a place of its own.
void dibujarTecla(QPainter& pintor, const QRectF& sitio, const CaraDeTecla& cara);
// The colour of the articles of a department.
QColor colorDeDepartamento(int departamento);

}  // namespace tarvo::devices
