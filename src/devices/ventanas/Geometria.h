// Where the keys of each model are. Lengths are in keys; a keyboard is drawn in any size.
#pragma once

#include <QRectF>
#include <vector>

namespace tarvo::devices {

struct Geometria {
  QSizeF tamano;
  QRectF visor;                // the display above the keys
  std::vector<QRectF> zonas;   // the plates that groups of keys lie on
  std::vector<QRectF> teclas;  // by key, from 1
  QRectF tecla(int n) const { return teclas.at(static_cast<size_t>(n - 1)); }
};

// Birch machines are made with their two rows of extra keys above, below, or at the sides.
enum class ArregloBirch { Arriba = 0, Abajo = 1, ALosLados = 2 };

// Without keys for an unknown model.
Geometria geometriaDe(int modelo, ArregloBirch arreglo = ArregloBirch::Arriba);

// The key at a point; 0 for none.
int teclaEn(const Geometria& geometria, QPointF punto);

enum class Rumbo { Izquierda, Derecha, Arriba, Abajo };
// The nearest key in that direction; the same one at the edge.
int vecina(const Geometria& geometria, int tecla, Rumbo rumbo);

}  // namespace tarvo::devices
