// What the connection knows beyond the engine's own: see Dialecto.h. Nothing in the schema may use
// it.
#pragma once

struct sqlite3;

namespace tarvo::dao {

int registrarFunciones(sqlite3* db);

}  // namespace tarvo::dao
