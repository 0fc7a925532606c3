// What a process makes machines forget is named before a person runs it.
#pragma once

#include <functional>
#include <vector>

#include "automation/lenguaje/Proceso.h"
#include "core/ventanas/marco/Ventana.h"

namespace tarvo::automation {

// Asks in that window; false if the user would rather keep it. Empty: nothing is asked.
using ConsienteOlvidos =
    std::function<bool(ventanas::Ventana& quien, const std::vector<PasoProceso>& pasos)>;

}  // namespace tarvo::automation
