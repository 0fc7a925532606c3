// The bar code of an article on a label: eight or thirteen digits, the last a check digit.
#pragma once

#include "articles/Articulo.h"

namespace tarvo::articles {

// The check digit of these. REQUIRES digits only.
int digitoControl(QStringView cifras);

// For eight or thirteen digits with a wrong check digit: the right one. Nothing for a correct code,
// or one of another kind.
std::optional<int> controlDebido(QStringView codigo);

// The number of digits of a kind, including the check digit.
int cifrasDe(int barras);
// Whether a predefined code has as many digits as its kind, whatever its check digit. REQUIRES a
// predefined code.
bool deSuTipo(const Articulo& articulo);

// The whole number under the bars. A composed EAN13 has zeros where the scale prints weight or
// amount. Empty when prefix and code don't fit the kind.
QString codigoImpreso(const Articulo& articulo);

// The bars of a number from left to right, true for a black module: EAN8 and EAN13 by its length,
// any other text as Code 128. Empty if it can't be drawn.
std::vector<bool> modulosBarras(const QString& codigo);

}  // namespace tarvo::articles
