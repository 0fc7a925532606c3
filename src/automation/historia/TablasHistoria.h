// Our own tables for the history of runs and what they owe: docs/procesos.md.
#pragma once

#include "core/dao/Pasos.h"

namespace tarvo::automation {

dao::TablasDeSala tablasHistoria();
// Creates only these, for programs that use this room alone.
Resultado<> asegurarTablasHistoria(dao::Database& db);

}  // namespace tarvo::automation
