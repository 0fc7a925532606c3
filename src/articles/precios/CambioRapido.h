// Fast change: one column of one article from typed text.
#pragma once

#include "articles/Catalogo.h"
#include "articles/precios/Limites.h"
#include "articles/precios/ParrillaRapida.h"
#include "core/ajustes/Ajustes.h"

namespace tarvo::precios {

// The article with that column changed, not yet written. Restriccion, with the fault in words, for
// a value that the column can't hold.
Resultado<articles::Articulo> conColumna(articles::Articulo articulo, ColumnaRapida columna,
                                         const QString& texto, const Ajustes& ajustes,
                                         const Textos& textos);

}  // namespace tarvo::precios
