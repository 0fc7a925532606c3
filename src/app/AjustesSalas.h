// The settings of all rooms in TARVO.INI. A room with its own settings is listed here, and nowhere
// else.
#pragma once

#include "core/ajustes/Ajustes.h"

namespace tarvo::app {

// The session begins at `ahora`.
std::vector<SalaDeAjustes> ajustesDeLasSalas(Fecha ahora = {});

}  // namespace tarvo::app
