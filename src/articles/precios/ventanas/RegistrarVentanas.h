// The windows of offers and prices, by name.
#pragma once

#include "articles/Catalogo.h"
#include "articles/precios/Ofertas.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::precios {

// REQUIRES that all arguments outlive all windows.
void registrarVentanasPrecios(ventanas::Ventanas& ventanas, articles::Catalogo& catalogo,
                              Ofertas& ofertas);

}  // namespace tarvo::precios
