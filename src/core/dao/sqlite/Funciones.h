// The functions and collations that the connection adds to the engine's: see Dialecto.h. Nothing in
// the schema may use them.
#pragma once

struct sqlite3;

namespace tarvo::dao {

int registrarFunciones(sqlite3* db);

}  // namespace tarvo::dao
