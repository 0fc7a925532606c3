// What becomes of one article of a batch. Internal to the room.
#pragma once

#include "articles/precios/CambioLote.h"

namespace tarvo::precios {

// The article is changed; what doesn't fit is in it too, and the line says so.
LineaLote cambiarConOrden(articles::Articulo& articulo, const OrdenLote& orden);

}  // namespace tarvo::precios
