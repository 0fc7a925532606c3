// The request --explorar: finds out what is connected, says it, and configures it if told.
#pragma once

#include "app/Ordenes.h"

namespace tarvo::app {

int explorar(const Ordenes& ordenes, const Textos& textos);

}  // namespace tarvo::app
