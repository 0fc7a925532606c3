// The life of a group in the books.
#pragma once

#include <vector>

#include "core/dao/Database.h"

namespace tarvo::totals {

// Whoever deletes a group calls this, in the same transaction: all that the books know of its
// machines, and what waits of them in the inbox, must not pass to a group that gets its code.
// Periods keep what they have.
Resultado<> olvidarGrupo(dao::Database& db, int grupo);
// Where that is, for who can bring the group back: tables with a column GRUPO, and what else marks
// the rows, ready to stand before a condition on it.
struct TablaDeGrupo {
  QString tabla, donde;
};
std::vector<TablaDeGrupo> tablasDeGrupo();

}  // namespace tarvo::totals
