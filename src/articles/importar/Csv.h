// Texts with separators, as pure functions: encoding and separator are found out, not asked for.
#pragma once

#include <QByteArray>

#include "articles/importar/Tabla.h"

namespace tarvo::importar {

enum class Codificacion { Utf8, Windows1252, Utf16LE, Utf16BE };

// By its mark; else by the zero bytes that Latin letters leave in UTF-16; else UTF-8 when nothing
// isn't.
Codificacion averiguarCodificacion(QByteArrayView bytes);
QString descodificarComo(const QByteArray& bytes, Codificacion codificacion);

// Of ";", tab, "," and "|" the one that parts the first lines into as many cells each; ";" when
// none parts any.
QChar averiguarSeparador(QStringView texto);

// A cell may stand in quotes, then it may hold the separator, ends of lines and "" for a quote. A
// quote that never ends is a quote. It stops when the table is full.
Tabla partirCsv(QStringView texto, QChar separador);

}  // namespace tarvo::importar
