// Files of the domain: read bounded, written whole. Their text is Windows-1252 with CR LF; a file
// that begins with a UTF-8 mark, or that an editor of today saved as UTF-8, is read as such.
#pragma once

#include <QByteArray>
#include <QString>

#include "core/valores/Resultado.h"

namespace tarvo::ficheros {

inline constexpr qint64 kLimite = 16 * 1024 * 1024;  // no text file of a shop is near it

// The bytes of an ordinary file. Errors: NoExiste, SinPermiso, Formato (a folder, a device, or
// above `limite`).
Resultado<QByteArray> leerBytes(const QString& ruta, qint64 limite = kLimite);

// Replaces a file by these bytes: written beside it, flushed to disk and renamed, so that a crash
// leaves the old file or the new one. Errors: DiscoLleno, SinPermiso, SoloLectura, NoExiste; the
// old file stays then.
Resultado<> escribirEntero(const QString& ruta, const QByteArray& bytes);

// A whole text: UTF-8 by its mark or by having nothing that isn't UTF-8, else Windows-1252.
QString descodificar(const QByteArray& bytes);
// A piece of a text known to be Windows-1252.
QString descodificar1252(const QByteArray& bytes);
// Windows-1252, or UTF-8 with its mark when a character of the text has no place in it or its bytes
// would be taken for UTF-8: descodificar() gives the text back.
QByteArray codificar(const QString& texto);
// Windows-1252 always; a character without a place becomes `reemplazo`.
QByteArray codificar1252(const QString& texto, char reemplazo = '?');

}  // namespace tarvo::ficheros
