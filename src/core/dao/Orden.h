// The order in which names sort and search: accents and case ignored, Ñ after N.
//
// An index cannot use a function of ours, because the file must open in any program. So the order
// exists twice, from one table of letters: for the schema as an expression of built-in functions,
// and for queries as a comparison.
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>
#include <compare>

namespace tarvo::dao {

// The key of a name; keys compare byte by byte as the names should.
QString claveOrden(QStringView nombre);
// An SQL expression for the key of a column (or of a parameter), using upper() and replace() only.
QString expresionOrden(QStringView columna);
// Compares two UTF-8 texts by their keys, without making them.
int compararOrden(QByteArrayView a, QByteArrayView b);
// Jet's LIKE over keys: * any run, ? one character, # one digit, [abc], [a-z] and [!abc] one of a
// list.
bool casaPatron(QStringView patron, QStringView texto);

}  // namespace tarvo::dao
