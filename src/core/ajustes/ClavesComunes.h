#pragma once

#include "core/ajustes/Ajustes.h"

namespace tarvo {

// The keys of general use.
std::vector<ClaveIni> clavesComunes();

}  // namespace tarvo
