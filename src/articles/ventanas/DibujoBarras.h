// A bar code as an image.
#pragma once

#include <QPixmap>

namespace tarvo::articles {

// EAN8 and EAN13 by their length, any other text as Code 128; black on white in every theme. Null
// if the text can't be drawn. `ancho` in pixels of the screen.
QPixmap dibujarBarras(const QString& codigo, int ancho, qreal escalaPantalla);

}  // namespace tarvo::articles
