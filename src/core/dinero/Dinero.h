// The only conversion between stored and shown money and quantities. Stored money is a whole number
// of minor units of the native currency; a stored quantity is grams (CADA 0 and 1) or units (CADA
// 2). Currency 0 is the national money, 1 the euro.
#pragma once

#include <optional>

#include "core/ajustes/Ajustes.h"

namespace tarvo {

int DecimalesMoneda(const Ajustes& a, int moneda);
qint64 pot10(const Ajustes& a);
double FactorMoneda(const Ajustes& a, int moneda);
// Nothing for a text that is no number or doesn't fit.
std::optional<qint64> LeerImporte(const Ajustes& a, const QString& texto, int moneda);
std::optional<qint64> LeerCantidad(const QString& texto, int cada);
// The same, with 0 for such a text.
qint64 AImporte(const Ajustes& a, const QString& texto, int moneda);
QString VerImporte(const Ajustes& a, qint64 n, int moneda);
QString VerCantidad(qint64 n, int cada);
qint64 ACantidad(const QString& texto, int cada);

}  // namespace tarvo
