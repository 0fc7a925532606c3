// Files of the domain: read up to a limit, written whole. Their text is Windows-1252 with CR LF; a
// file with a UTF-8 mark, or saved as UTF-8 by a modern editor, is read as such.
#pragma once

#include <QByteArray>
#include <QString>

#include "core/valores/Resultado.h"

namespace tarvo::ficheros {

inline constexpr qint64 kLimite = 16 * 1024 * 1024;  // far above any text file of a shop

// The bytes of an ordinary file. Errors: NoExiste, SinPermiso, Formato (a folder, a device, or
// above `limite`).
Resultado<QByteArray> leerBytes(const QString& ruta, qint64 limite = kLimite);

// Replaces a file by these bytes: written beside it, flushed to disk and renamed, so that a crash
// leaves the old file or the new one. Errors, after which the old file is intact: DiscoLleno,
// SinPermiso, SoloLectura, NoExiste.
Resultado<> escribirEntero(const QString& ruta, const QByteArray& bytes);

// A whole text: UTF-8 if it has the mark or is valid UTF-8 throughout, else Windows-1252.
QString descodificar(const QByteArray& bytes);
// A piece of a text known to be Windows-1252.
QString descodificar1252(const QByteArray& bytes);
// Windows-1252, or UTF-8 with its mark if the text has a character outside Windows-1252 or its
// bytes would be taken for UTF-8: descodificar() gives the text back.
QByteArray codificar(const QString& texto);
// Always Windows-1252; a character outside it becomes `reemplazo`.
QByteArray codificar1252(const QString& texto, char reemplazo = '?');

}  // namespace tarvo::ficheros
