// The rows that every database has. Each step finds by itself whether there is work; all are plain
// statements over sets, so that running them again changes nothing.
#pragma once

#include "core/esquema/Esquema.h"

namespace tarvo::esquema {

bool esquemaCompleto(dao::Database& db);

// The version the database was last opened with; nothing when the table or its row is missing.
Resultado<std::optional<Version>> versionGuardada(dao::Database& db);
Resultado<> guardarVersion(dao::Database& db, Version version);

// Whether any of the steps below has something to do.
Resultado<bool> hayPendientes(dao::Database& db);
Resultado<> darPasos(dao::Database& db, Fecha hoy);

}  // namespace tarvo::esquema
