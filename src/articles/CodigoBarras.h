// The bar code of an article as a label shows it: eight or thirteen digits, the last of which
// checks the others.
#pragma once

#include "articles/Articulo.h"

namespace tarvo::articles {

// The digit that checks these. REQUIRES digits only.
int digitoControl(QStringView cifras);

// For eight or thirteen digits that don't check: the last digit as it should be. Nothing for a code
// that is right, or of another kind.
std::optional<int> controlDebido(QStringView codigo);

// The whole number under the bars. A composed EAN13 has zeros where the scale prints weight or
// amount. Empty when prefix and code don't fit the kind.
QString codigoImpreso(const Articulo& articulo);

}  // namespace tarvo::articles
