// The tables of our own in which stands what each group holds of the catalogue.
#pragma once

#include "core/dao/Database.h"

namespace tarvo::envios {

// Makes those that are missing. Cheap when all are there. REQUIRES the tables of the schema.
Resultado<> asegurarTablasEnvios(dao::Database& db);

}  // namespace tarvo::envios
