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

// How many digits a kind has, the checking one among them.
int cifrasDe(int barras);
// Whether a predefined code has the digits of its kind, whatever the last one is. REQUIRES one.
bool deSuTipo(const Articulo& articulo);

// The whole number under the bars. A composed EAN13 has zeros where the scale prints weight or
// amount. Empty when prefix and code don't fit the kind.
QString codigoImpreso(const Articulo& articulo);

}  // namespace tarvo::articles
