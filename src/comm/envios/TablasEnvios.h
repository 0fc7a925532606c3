// The additional tables that record what each group holds of the catalogue.
#pragma once

#include "core/dao/Pasos.h"

namespace tarvo::envios {

dao::TablasDeSala tablasEnvios();
// Those that keep rows by the number of a group, in a column GRUPO. They go with the group; who can
// restore it restores them, so that its machines don't have to be sent everything again.
std::vector<QString> tablasDeGrupo();
// Creates only these, for users of this room alone. REQUIRES those of the schema.
Resultado<> asegurarTablasEnvios(dao::Database& db);

}  // namespace tarvo::envios
