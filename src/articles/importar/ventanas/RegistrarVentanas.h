// The windows of imports of articles, by name.
#pragma once

#include "articles/Catalogo.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::importar {

// REQUIRES that all arguments outlive all windows.
void registrarVentanasImportar(ventanas::Ventanas& ventanas, articles::Catalogo& catalogo);

}  // namespace tarvo::importar
