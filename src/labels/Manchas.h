// A field as dots of the printer, and its box.
#pragma once

#include <QRect>
#include <functional>

#include "labels/Formato.h"
#include "labels/FuenteImpresora.h"

namespace tarvo::labels {

// Gives the text of a number, 1 to 40.
using LectorTextos = std::function<QString(int)>;

// Black dots in a box; positions count from the top left corner of the printed area.
struct Mancha {
  QRect caja;
  std::vector<quint8> puntos;       // by rows; other than 0 is black
  bool negro(int x, int y) const {  // from the corner of the box
    return puntos[static_cast<size_t>(y) * static_cast<size_t>(caja.width()) +
                  static_cast<size_t>(x)] != 0;
  }
  // The smallest box around the black dots; empty without any.
  QRect tinta() const;
};

// The largest number of characters of a type of text, as the printer prints it; 0: as long as its
// text.
int caracteresDe(TipoCampo tipo);
// What the editor shows for the field: a sample, or the text of a text line.
QString muestraDe(const CampoEtiqueta& campo, const LectorTextos& textos);

// The box of a field with that content, of which only the length counts.
QRect cajaDe(const CampoEtiqueta& campo, const QString& contenido);
// The field with that content: of a bar code its number, of other drawings nothing. A number that
// can't be a bar code gives a blank one.
Mancha manchaDe(const CampoEtiqueta& campo, const QString& contenido,
                const FuenteImpresora& fuente);

}  // namespace tarvo::labels
