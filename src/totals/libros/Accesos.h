// Where the machines are that hold memorised sales. Groups are known by their code, machines by
// the access of their group, and another program may exchange the accesses of two groups: then the
// counters of one are compared with those of the other. Rules: docs/libros.md.
#pragma once

#include <map>
#include <vector>

#include "core/ajustes/Ajustes.h"
#include "core/dao/Database.h"

namespace tarvo::totals {

// The machines that the group reaches now, by their access: a name for each, divided by blanks.
// Empty for a group that has no access, or no row. A host with two names has two.
Resultado<QString> accesoDe(dao::Database& db, int grupo);
// Where the group's memorised counters were read; empty when that is unknown.
Resultado<QString> accesoDeBase(dao::Database& db, int grupo);
// Groups whose machines may be the ones that this group reaches at `acceso`, or may have been given
// the place of its own: it is not where its memorised counters were read, and one place or the
// other is that of these. Empty for a group that is where it was, or at a place that is no other's.
Resultado<std::vector<int>> otrosDelAcceso(dao::Database& db, int grupo, const QString& acceso);

// Inside the caller's transaction, like all that follows. The group's memorised counters are those
// of the machines at `acceso`; those of deleted groups that were read there are gone.
Resultado<> asentarAcceso(dao::Database& db, int grupo, const QString& acceso);
// A register left the group.
Resultado<> quitarDelAcceso(dao::Database& db, int grupo, int addr);

// The memorised counters of a group that is about to be forgotten stay in its machines, which may
// be given to another one. They are kept under a number below zero, until that group's reading has
// been memorised or the deleted group is back.
Resultado<> dejarSueltas(dao::Database& db, int grupo);
// The code that the group has, or had when it was deleted.
int codigoDe(int grupo);

// What is known of the machines of some groups goes to others of them. By receiving group: whose
// machines it has from now on. REQUIRES that each group in it gives once and receives once, that no
// question about them is open and no zeroing of theirs is half done, and the memorised counters of
// all set apart (apartarBase).
Resultado<> traspasar(dao::Database& db, const Ajustes& ajustes, const std::map<int, int>& deQuien);

}  // namespace tarvo::totals
