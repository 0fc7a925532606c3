// The order in which names sort and search: accents and case ignored, Ñ after N.
//
// An index cannot use a function of ours, because the file must open in any program that reads it.
// So the same order exists twice, from one table of letters: as an expression of built-in
// functions, for the schema, and as a comparison, for queries.
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>
#include <compare>

namespace tarvo::dao {

// The key of a name; keys compare byte by byte as the names should.
QString claveOrden(QStringView nombre);
// An SQL expression with the key of a column (or of a parameter), made of upper() and replace()
// only.
QString expresionOrden(QStringView columna);
// Compares two UTF-8 texts by their keys, without making them.
int compararOrden(QByteArrayView a, QByteArrayView b);
// Jet's LIKE over keys: * any run, ? one character, # one digit, [abc], [a-z] and [!abc] one of a
// list.
bool casaPatron(QStringView patron, QStringView texto);

}  // namespace tarvo::dao
