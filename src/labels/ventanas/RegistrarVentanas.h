// The windows of labels, by name.
#pragma once

#include "articles/Catalogo.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::labels {

// REQUIRES that the catalogue outlives all windows.
void registrarVentanasLabels(ventanas::Ventanas& ventanas, articles::Catalogo& catalogo);

}  // namespace tarvo::labels
