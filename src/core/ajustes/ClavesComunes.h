#pragma once

#include "core/ajustes/Ajustes.h"

namespace tarvo {

// The keys that are everybody's.
std::vector<ClaveIni> clavesComunes();

}  // namespace tarvo
