// The tables of our own that the catalogue keeps.
#pragma once

#include "core/dao/Pasos.h"

namespace tarvo::articles {

dao::TablasDeSala tablasArticulos();
// Brings them alone, for who works with this room alone. REQUIRES those of the schema.
Resultado<> asegurarTablasArticulos(dao::Database& db);

}  // namespace tarvo::articles
