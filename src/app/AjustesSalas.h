// What each room keeps in TARVO.INI. A room with settings of its own is named here, and nowhere
// else.
#pragma once

#include "core/ajustes/Ajustes.h"

namespace tarvo::app {

// The session begins at `ahora`.
std::vector<SalaDeAjustes> ajustesDeLasSalas(Fecha ahora = {});

}  // namespace tarvo::app
