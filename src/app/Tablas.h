// The tables of each room in the database. A room with its own tables is named here, and nowhere
// else.
#pragma once

#include "core/dao/Pasos.h"

namespace tarvo::app {

std::vector<dao::TablasDeSala> tablasDeLasSalas();

}  // namespace tarvo::app
