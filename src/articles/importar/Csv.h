// Texts with separators, as pure functions: encoding and separator are detected, not asked for.
#pragma once

#include <QByteArray>

#include "articles/importar/Tabla.h"

namespace tarvo::importar {

enum class Codificacion { Utf8, Windows1252, Utf16LE, Utf16BE };

// By its mark; else by the zero bytes of Latin letters in UTF-16; else UTF-8 when all of it is
// valid.
Codificacion averiguarCodificacion(QByteArrayView bytes);
QString descodificarComo(const QByteArray& bytes, Codificacion codificacion);

// Of ";", tab, "," and "|" the one that splits the first lines into equal numbers of cells; ";"
// when none splits any.
QChar averiguarSeparador(QStringView texto);

// A cell may be quoted, and then contain the separator, line ends and "" for a quote. An unclosed
// quote is taken literally. Stops when the table is full.
Tabla partirCsv(QStringView texto, QChar separador);

}  // namespace tarvo::importar
