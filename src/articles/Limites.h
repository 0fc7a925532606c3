// The limits of an article's fields for every source: list, editor, fast windows, offers, tables
// and files. A refusal names the limit.
#pragma once

#include <expected>
#include <optional>

#include "core/ajustes/Ajustes.h"
#include "core/textos/Textos.h"
#include "core/valores/Resultado.h"

namespace tarvo::articles {

inline constexpr int kNombreMayor = 50;  // letters
inline constexpr int kUltimoDepartamento = 40, kUltimoFormato = 20;
inline constexpr int kDiasMayor = 9999;
inline constexpr int kPrefijoBarrasMayor = 7;   // digits: 13 of a code less the six of the article
inline constexpr int kDescuentoMayor = 100'00;  // hundredths of a per cent
inline constexpr qint64 kPrecioDeBalanza = 999'999;  // the highest a scale can show
inline constexpr qint64 kPrecioMayor = 999'999'999;  // the highest stored
inline constexpr qint64 kMinimoMayor = 999'999, kHastaMayor = 99'999;

enum class FaltaPrecio { NoEsImporte, Negativo, Demasiado, Vacio, SobranDecimales, DeDosModos };
// A price as a person types it, in a currency's money; in the native one without `moneda`. One with
// more decimals than the currency has is refused, and so is "1.239", which may be 1239 or 1,24:
// what is stored is what was meant.
std::expected<qint64, FaltaPrecio> comoPrecio(const QString& texto, const Ajustes& ajustes,
                                              std::optional<int> moneda = {});
// The same from a file, where nobody could type it again: rounded to the last decimal, halves up.
std::expected<qint64, FaltaPrecio> comoPrecioRedondeado(const QString& texto,
                                                        const Ajustes& ajustes,
                                                        std::optional<int> moneda = {});
// The same fault in words, with the value entered and what to do. `moneda`: as above.
Error errorDe(FaltaPrecio falta, const QString& texto, const Ajustes& ajustes, const Textos& textos,
              std::optional<int> moneda = {});
// The warning for a price that is written although most scales have no digits for it. Nothing for
// others.
std::optional<QString> avisoPrecio(qint64 precio, const Ajustes& ajustes, const Textos& textos);

// The same for a price that replaces another: also warns of one that becomes 0, or changes by more
// than half.
std::optional<QString> avisoCambio(qint64 antes, qint64 ahora, const Ajustes& ajustes,
                                   const Textos& textos);
// The same, which names whose price it is and which one, for a person who may look elsewhere by
// then.
std::optional<QString> avisoCambio(const QString& articulo, const QString& precio, qint64 antes,
                                   qint64 ahora, const Ajustes& ajustes, const Textos& textos);
// The same for the first of the prices of an article of which there is something to warn.
std::optional<QString> avisoCambio(const QString& articulo, const Precios& antes,
                                   const Precios& ahora, const Ajustes& ajustes,
                                   const Textos& textos);
// A price by its level and its tarifa, from 0.
QString nombrePrecio(int nivel, int tarifa, const Textos& textos);

// The fault in a name, a department or a label format, in words; nothing for a good one.
std::optional<QString> malNombre(const QString& nombre, const Textos& textos);
std::optional<QString> malDepartamento(qint64 departamento, const Textos& textos);
std::optional<QString> malFormato(qint64 formato, const Textos& textos);

}  // namespace tarvo::articles
