// What the fields of an article take from a person, and how typed numbers are read.
#pragma once

#include <QStringView>
#include <algorithm>
#include <optional>

#include "articles/Secciones.h"

namespace tarvo::precios {

inline constexpr int kNombreMayor = 20, kUltimoFormato = 20;
using articles::kUltimoDepartamento;
inline constexpr int kDiasMayor = 9999;
inline constexpr qint64 kPrecioDeBalanza = 999'999;  // the highest that a scale can show
inline constexpr qint64 kPrecioMayor = 999'999'999;  // the highest that a person may key

inline bool sonCifras(QStringView s) {
  return std::ranges::all_of(s, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

// A whole number of these limits; nothing for any other text.
inline std::optional<qint64> numeroEntre(QStringView texto, qint64 desde, qint64 hasta) {
  bool ok = false;
  const qint64 n = texto.trimmed().toLongLong(&ok);
  return ok && n >= desde && n <= hasta ? std::optional(n) : std::nullopt;
}

}  // namespace tarvo::precios
