// The catalogue's own tables.
#pragma once

#include "core/dao/Pasos.h"

namespace tarvo::articles {

dao::TablasDeSala tablasArticulos();
// Creates only these, for programs that use this room alone. REQUIRES those of the schema.
Resultado<> asegurarTablasArticulos(dao::Database& db);

}  // namespace tarvo::articles
