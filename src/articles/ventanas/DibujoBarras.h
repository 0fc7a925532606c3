// A bar code as a picture.
#pragma once

#include <QPixmap>

namespace tarvo::articles {

// EAN8 and EAN13 by their length, any other text as Code 128; black on white whatever the face.
// Null for a text that can't be drawn. `ancho` in pixels of the screen.
QPixmap dibujarBarras(const QString& codigo, int ancho, qreal escalaPantalla);

}  // namespace tarvo::articles
