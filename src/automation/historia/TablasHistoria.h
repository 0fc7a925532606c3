// The tables of our own in which stands how runs went and what they owe: docs/procesos.md.
#pragma once

#include "core/dao/Pasos.h"

namespace tarvo::automation {

dao::TablasDeSala tablasHistoria();
// Brings them alone, for who works with this room alone.
Resultado<> asegurarTablasHistoria(dao::Database& db);

}  // namespace tarvo::automation
