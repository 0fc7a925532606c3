// Moving and adding up whole sets of totals rows, one statement per kind. Internal to the room.
#pragma once

#include "core/dao/Database.h"
#include "core/textos/Textos.h"
#include "totals/periodos/Clases.h"

namespace tarvo::totals {

// Adds rows to those of `destino`, or subtracts them with signo -1, key by key. `origen` is a query
// that returns the key columns, CON, PES, IMP and SCO, each key once; its one parameter is `cual`.
Resultado<> sumarFilas(dao::Database& db, const ClaseTotal& c, qint64 destino,
                       const QString& origen, qint64 cual, int signo, const Textos& textos);
// The same for one row: parameters destino, the key columns, CON, PES, IMP and SCO.
Resultado<std::unique_ptr<dao::Sentencia>> prepararSuma(dao::Database& db, const ClaseTotal& c);
// An Error when a counter of the period has left the integer range.
Resultado<> comprobarRango(dao::Database& db, const ClaseTotal& c, qint64 link,
                           const Textos& textos);

}  // namespace tarvo::totals
