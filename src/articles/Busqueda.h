// The search in the list of articles as a person types.
#pragma once

#include <vector>

#include "core/dao/Valor.h"

namespace tarvo::articles {

// A condition on PLUSES, with its bound values. Empty for all articles.
struct Condicion {
  QString sql;
  std::vector<dao::Valor> valores;
};

// The articles with each word of the text somewhere in their name, code (seven digits) or bar code.
// Accents and case don't matter.
Condicion condicionBusqueda(const QString& texto);

}  // namespace tarvo::articles
