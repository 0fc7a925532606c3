// The life of a group in the books.
#pragma once

#include <vector>

#include "core/dao/Database.h"

namespace tarvo::totals {

// Called in the transaction that deletes a group: what the books know of its machines, and their
// rows in the inbox, must not pass to a later group with its code. Periods keep what they have.
Resultado<> olvidarGrupo(dao::Database& db, int grupo);
// Where that is, for callers that can restore the group: tables with a column GRUPO, and what else
// marks the rows, ready to precede a condition on it.
struct TablaDeGrupo {
  QString tabla, donde;
};
std::vector<TablaDeGrupo> tablasDeGrupo();

}  // namespace tarvo::totals
