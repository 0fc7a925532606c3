// Groups whose places were exchanged, or handed on, by somebody who changed their accesses: by
// their counters the machines tell whose they are. Rules: docs/libros.md.
#pragma once

#include <set>

#include "totals/libros/Sesion.h"

namespace tarvo::totals {

// Settles it for all groups of the open session, in the current transaction: one that is read at a
// place of its own goes on; where the machines are another group's by their counters, and by these
// alone, what is known of both changes places; where there is no telling a person is asked, and the
// group stays out. Returns these groups.
Resultado<std::set<int>> seguirMaquinas(dao::Database& db, const Ajustes& ajustes,
                                        const Textos& textos, std::vector<Aviso>& avisos);
// Why a group may not be told to forget where it is now: its machines may be those of another, and
// no reading has shown it. Empty when they aren't.
Resultado<QString> motivoDeAcceso(dao::Database& db, const Textos& textos, int grupo);

}  // namespace tarvo::totals
