// Moving, stretching, aligning and snapping fields, in dots.
#pragma once

#include <optional>

#include "labels/Manchas.h"

namespace tarvo::labels {

// The printed area of a format; its corner is the origin of positions.
QRect areaDe(const Formato& formato);

// Moves a field. Positions may become negative, but never pass what the text can hold; a
// rectangle's second corner moves along, and holds the first one back where it can't.
void mover(CampoEtiqueta& campo, QPoint cuanto);
// Changes what a field has of size: the second corner of a rectangle, the length and thickness of a
// line, the height of a bar code. Texts have none: false.
bool estirar(CampoEtiqueta& campo, QPoint cuanto);
// A new field of that type, at its place of a new field, moved inside the area as far as needed.
CampoEtiqueta nuevoCampo(TipoCampo tipo, const Formato& formato, int numeroTexto = 0);

enum class Lado { Izquierda, Centro, Derecha, Arriba, Medio, Abajo };
// Moves the fields so that their boxes share that side, or middle, of the box around all of them.
void alinear(Formato& formato, const std::vector<size_t>& cuales, Lado lado,
             const LectorTextos& textos);

// What a box that is being moved snaps to: sides and middles of others, within `cerca` dots.
struct Iman {
  QPoint cuanto;            // to be added to the movement
  std::optional<int> x, y;  // the lines to which it snapped
};
Iman imantar(const QRect& movida, const std::vector<QRect>& otras, int cerca);

// Moves those fields one place towards the first (-1) or the last (1) that is printed. Returns
// their new places.
std::vector<size_t> reordenar(Formato& formato, std::vector<size_t> cuales, int pasos);

}  // namespace tarvo::labels
