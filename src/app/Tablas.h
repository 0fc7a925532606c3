// What each room keeps in the database. A room with tables of its own is named here, and nowhere
// else.
#pragma once

#include "core/dao/Pasos.h"

namespace tarvo::app {

std::vector<dao::TablasDeSala> tablasDeLasSalas();

}  // namespace tarvo::app
