// The rows that every database has, ensured at every start: each checks whether it is missing, so
// that running them again changes nothing.
#pragma once

#include "core/esquema/Esquema.h"

namespace tarvo::esquema {

// The version the database was last opened with; nothing if the table or its row is missing.
Resultado<std::optional<Version>> versionGuardada(dao::Database& db);
Resultado<> guardarVersion(dao::Database& db, Version version);

// Whether any is missing.
Resultado<bool> faltanFilas(dao::Database& db);
Resultado<> ponerFilas(dao::Database& db, Fecha hoy);

}  // namespace tarvo::esquema
