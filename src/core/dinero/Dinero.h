// The only conversion between stored and shown money and quantities. Stored money is a whole number
// of minor units of the native currency; a stored quantity is grams (CADA 0 and 1) or units (CADA
// 2). Currency 0 is the national money, 1 the euro. Both have the separators of the language.
#pragma once

#include <optional>

#include "core/ajustes/Ajustes.h"

namespace tarvo {

int DecimalesMoneda(const Ajustes& a, int moneda);
int DecimalesCantidad(int cada);
qint64 pot10(const Ajustes& a);
double FactorMoneda(const Ajustes& a, int moneda);
// Nothing for a text that is no number or doesn't fit. A single thousands separator that can't
// separate thousands ("1.5", "0.250") is taken for the decimal sign. Decimals without room are
// rounded away, in money; a count of units loses them.
std::optional<qint64> LeerImporte(const Ajustes& a, const QString& texto, int moneda);
std::optional<qint64> LeerCantidad(Idioma idioma, const QString& texto, int cada);
// Whether reading it would lose decimals other than zeros: what a person types is refused then.
bool SobranDecimales(const Ajustes& a, const QString& texto, int moneda);
bool SobranDecimales(Idioma idioma, const QString& texto, int cada);
// The two numbers that a person may mean by a text with a single thousands separator before three
// digits, where decimals fit: "1.239" is 1239 or 1,239. Each as it is typed without doubt, the
// second one rounded to the decimals that fit; nothing for any other text. What a person types is
// refused then; LeerImporte and LeerCantidad take the first one.
struct DosLecturas {
  QString entera, decimal;
};
std::optional<DosLecturas> LeidoDeDosModos(const Ajustes& a, const QString& texto, int moneda);
std::optional<DosLecturas> LeidoDeDosModos(Idioma idioma, const QString& texto, int cada);
// "5,5" or "5.5" per cent as 550; nothing for more than two decimals or what is no number.
std::optional<int> LeerCentesimas(const QString& texto);
// The same with an optional "%" after it; nothing either for less than 0.
std::optional<int> LeerPorcentaje(const QString& texto);
bool SobranCentesimas(const QString& texto);  // a number, but with more than two decimals
// The same, with 0 for such a text.
qint64 AImporte(const Ajustes& a, const QString& texto, int moneda);
QString VerImporte(const Ajustes& a, qint64 n, int moneda);
QString VerCantidad(Idioma idioma, qint64 n, int cada);
qint64 ACantidad(Idioma idioma, const QString& texto, int cada);

}  // namespace tarvo
