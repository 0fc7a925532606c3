// The additional tables that record what each group holds of the catalogue.
#pragma once

#include "core/dao/Pasos.h"

namespace tarvo::envios {

dao::TablasDeSala tablasEnvios();
// Creates only these, for users of this room alone. REQUIRES those of the schema.
Resultado<> asegurarTablasEnvios(dao::Database& db);

}  // namespace tarvo::envios
