// The tables of our own in which stands what each group holds of the catalogue.
#pragma once

#include "core/dao/Pasos.h"

namespace tarvo::envios {

dao::TablasDeSala tablasEnvios();
// Brings them alone, for who works with this room alone. REQUIRES those of the schema.
Resultado<> asegurarTablasEnvios(dao::Database& db);

}  // namespace tarvo::envios
