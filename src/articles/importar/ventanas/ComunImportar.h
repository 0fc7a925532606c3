// What the windows of imports share: the list of bad lines and the step back.
#pragma once

#include "articles/Lotes.h"
#include "articles/importar/Lineas.h"
#include "core/ventanas/Parrilla.h"
#include "core/ventanas/Ventana.h"

namespace tarvo::importar {

// The columns of a list of bad lines.
void prepararMalas(ventanas::Parrilla& lista, ventanas::Contexto& contexto, const QString& ventana);
void ponerMalas(ventanas::Parrilla& lista, const std::vector<LineaMala>& malas);

// Asks, takes the last batch of the window back, and says on its strip what came of it. True when
// it was done.
bool deshacerUltimo(ventanas::Ventana& ventana, articles::Lotes& lotes);
bool hayQueDeshacer(const ventanas::Ventana& ventana, articles::Lotes& lotes);

}  // namespace tarvo::importar
