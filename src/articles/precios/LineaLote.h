// The effect on one article of a batch. Internal to the room.
#pragma once

#include "articles/precios/CambioLote.h"

namespace tarvo::precios {

// Changes the article, including values that don't fit, which the line reports.
LineaLote cambiarConOrden(articles::Articulo& articulo, const OrdenLote& orden);

}  // namespace tarvo::precios
