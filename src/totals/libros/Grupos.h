// The life of a group in the books.
#pragma once

#include "core/dao/Database.h"

namespace tarvo::totals {

// Whoever deletes a group calls this, in the same transaction: all that the books know of its
// machines, and what waits of them in the inbox, must not pass to a group that gets its code.
// Periods keep what they have.
Resultado<> olvidarGrupo(dao::Database& db, int grupo);

}  // namespace tarvo::totals
