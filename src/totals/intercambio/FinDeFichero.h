// The end of an export file: whether a block may be added to it. Another program, an editor or a
// full disk may have cut off its last block, and a block after it could not be read. Internal to
// the room.
#pragma once

#include <QByteArrayView>

#include "core/ajustes/Ajustes.h"
#include "core/dao/Database.h"

namespace tarvo::totals {

// The last bytes of a file are those of a whole block: a row, the two header lines of a block
// without rows, blank lines after either. Lines missing at its end can't be seen.
bool acabaBloque(QByteArrayView cola, const Ajustes& ajustes);

// What the last export left in a file (table ExportesFinales): its blocks, from `desde` to `hasta`,
// of which `cabeza` are the first bytes. REQUIRES a transaction, and that the file exists.
Resultado<> anotarFinal(dao::Database& db, const QString& ruta, qint64 desde, qint64 hasta,
                        const QByteArray& cabeza);

// Whether those blocks are in the file but for their end.
Resultado<bool> faltaElFinal(dao::Database& db, const QString& ruta);

// Whether anything added to the file could be read. True for an empty file and a missing one.
Resultado<bool> admiteOtroBloque(dao::Database& db, const Ajustes& ajustes, const QString& ruta);

}  // namespace tarvo::totals
