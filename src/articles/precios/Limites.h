// The limits of the catalogue, and the reading of integers.
#pragma once

#include <QStringView>
#include <algorithm>
#include <optional>

#include "articles/Limites.h"

namespace tarvo::precios {

using articles::avisoCambio;
using articles::avisoPrecio;
using articles::comoPrecio;
using articles::errorDe;
using articles::FaltaPrecio;
using articles::kDiasMayor;
using articles::kPrecioDeBalanza;
using articles::kPrecioMayor;
using articles::kUltimoDepartamento;
using articles::kUltimoFormato;

inline bool sonCifras(QStringView s) {
  return std::ranges::all_of(s, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

// An integer within these limits; nothing for any other text.
inline std::optional<qint64> numeroEntre(QStringView texto, qint64 desde, qint64 hasta) {
  bool ok = false;
  const qint64 n = texto.trimmed().toLongLong(&ok);
  return ok && n >= desde && n <= hasta ? std::optional(n) : std::nullopt;
}

}  // namespace tarvo::precios
