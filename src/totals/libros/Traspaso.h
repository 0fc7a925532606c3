// What the books know of the machines of some groups goes to others of them.
#pragma once

#include <map>

#include "core/dao/Database.h"

namespace tarvo::totals {

// By receiving group: whose machines it has from now on. REQUIRES that each group in it gives once
// and receives once, that no question about them is open and no zeroing of theirs is half done, and
// the memorised counters of all set apart (apartarBase). In the current transaction.
Resultado<> traspasar(dao::Database& db, const Ajustes& ajustes, const std::map<int, int>& deQuien);

}  // namespace tarvo::totals
