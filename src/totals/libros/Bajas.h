// Signs of an unrecorded zeroing in a reading that may be replaced before it is judged: the next
// one may be higher everywhere, and would show nothing. Rules: docs/libros.md.
#pragma once

#include <set>

#include "totals/libros/Sesion.h"

namespace tarvo::totals {

// Inside the caller's transaction, like all that follows. Notes the machines whose reading of this
// kind, just stored, is lower than what they held memorised, unless it proves that they forgot
// nothing.
Resultado<> anotarBajas(dao::Database& db, int grupo, TipoTotal clase);
// The same for a refused reading with a count below that of the waiting one.
Resultado<> anotarRechazada(dao::Database& db, int grupo, TipoTotal clase, const Lectura& lectura,
                            qint64 sec);
// Machines of the group with such a sign in none of the open session's readings, but in one that
// these have replaced.
Resultado<std::set<int>> conBajas(dao::Database& db, const Ajustes& ajustes, int grupo);
// The machine has been judged by readings later than its signs.
Resultado<> olvidarBajas(dao::Database& db, int grupo, int addr);

}  // namespace tarvo::totals
