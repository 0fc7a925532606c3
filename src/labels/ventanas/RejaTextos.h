// The grid of the 40 texts of a label: 1 to 20 are fixed, the others can be edited.
#pragma once

#include "core/ventanas/marco/Contexto.h"
#include "labels/JuegosTextos.h"

namespace tarvo::ventanas {
class Parrilla;
}

namespace tarvo::labels {

// `escribir` stores a free text in the copy being edited; the rows are then shown again by
// mostrarTextos().
void prepararTextos(ventanas::Parrilla& reja, ventanas::Contexto& contexto, const QString& nombre,
                    std::function<void(int numero, const QString& texto)> escribir);
void mostrarTextos(ventanas::Parrilla& reja, const JuegosTextos& motor, const Juegos& en,
                   const std::optional<QString>& juego);

}  // namespace tarvo::labels
