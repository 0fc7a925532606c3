// Fast change: one column of one article from what a person typed.
#pragma once

#include <expected>

#include "articles/Catalogo.h"
#include "articles/precios/ParrillaRapida.h"
#include "core/ajustes/Ajustes.h"

namespace tarvo::precios {

// The article with that column changed, not written yet. Restriccion, with what is wrong in words,
// for a value that the column can't hold.
Resultado<articles::Articulo> conColumna(articles::Articulo articulo, ColumnaRapida columna,
                                         const QString& texto, const Ajustes& ajustes,
                                         const Textos& textos);

// Why a text is no price; in the order of the texts from kTxPrecioNoVale on.
enum class FaltaPrecio { NoEsImporte, Negativo, Demasiado };
// What a person typed for a price, up to kPrecioMayor. An empty text is 0.
std::expected<qint64, FaltaPrecio> comoPrecio(const QString& texto, const Ajustes& ajustes);
// The same fault in words, with what was typed and what to do.
Error errorDe(FaltaPrecio falta, const QString& texto, const Ajustes& ajustes,
              const Textos& textos);
// The price is written, but most scales have no digits for it: what to tell. Nothing for others.
std::optional<QString> avisoPrecio(qint64 precio, const Ajustes& ajustes, const Textos& textos);

}  // namespace tarvo::precios
