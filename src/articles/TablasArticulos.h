// The tables of our own that the catalogue keeps.
#pragma once

#include "core/dao/Database.h"

namespace tarvo::articles {

// Makes those that are missing. Cheap when all are there.
Resultado<> asegurarTablasArticulos(dao::Database& db);

}  // namespace tarvo::articles
