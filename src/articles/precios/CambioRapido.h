// Fast change: one column of one article from what a person typed.
#pragma once

#include "articles/Catalogo.h"
#include "articles/precios/ParrillaRapida.h"
#include "core/ajustes/Ajustes.h"

namespace tarvo::precios {

// The article with that column changed, not written yet. Restriccion, with what is wrong in words,
// for a value that the column can't hold.
Resultado<articles::Articulo> conColumna(articles::Articulo articulo, ColumnaRapida columna,
                                         const QString& texto, const Ajustes& ajustes,
                                         const Textos& textos);

// What a person typed for a price; nothing when it is no amount from 0 to what a price column
// holds. An empty text is 0.
std::optional<qint64> comoPrecio(const QString& texto, const Ajustes& ajustes);

}  // namespace tarvo::precios
