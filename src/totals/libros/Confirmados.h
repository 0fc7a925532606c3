// Machines that confirmed that they forgot. What each of them held is kept until its next reading
// shows that it did. Rules: docs/libros.md.
#pragma once

#include <set>

#include "totals/libros/Sesion.h"

namespace tarvo::totals {

// Inside the caller's transaction, like all that follows, and before the confirmation is noted:
// keeps the machine's last reading of each kind. `visto`: its counters were seen to be gone, and
// nothing has to be shown any more.
Resultado<> guardarLoConfirmado(dao::Database& db, int grupo, int addr, bool visto);
Resultado<std::set<int>> gruposConConfirmados(dao::Database& db);
// Settles from the open session's readings which of the group's machines forgot. One that didn't
// still holds its memorised counters, and is named. False when a person must say it: the group then
// stays out of this memorisation.
Resultado<bool> resolverConfirmados(dao::Database& db, const Ajustes& ajustes, const Textos& textos,
                                    int grupo, std::vector<Aviso>& avisos);
// The sales that these groups had in the inbox are in no period.
Resultado<> olvidarConfirmadosDe(dao::Database& db, const Ajustes& ajustes, qint64 sec);
// A machine of the group may still hold what it confirmed to have forgotten.
Resultado<bool> sinDemostrar(dao::Database& db, int grupo);

}  // namespace tarvo::totals
