// The group that an empty database begins with.
#pragma once

#include "core/ajustes/Ajustes.h"
#include "core/dao/Database.h"

namespace tarvo::devices {

// Creates group 1, "GRUPO", in section 1 and the first warehouse, with one Cedar scale under number
// 0. Runs at every start and does nothing if there is a group.
Resultado<> asegurarPrimerGrupo(dao::Database& db, const Ajustes& ajustes);

}  // namespace tarvo::devices
