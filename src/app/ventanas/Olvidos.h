// What a process makes machines forget is named group by group before a person runs it.
#pragma once

#include "app/Aplicacion.h"
#include "core/ventanas/marco/Ventana.h"

namespace tarvo::app {

// Asks in that window for each kind of forgetting; false if the user would rather keep it.
bool consienteOlvidos(ventanas::Ventana& quien, Aplicacion& aplicacion,
                      const std::vector<automation::PasoProceso>& pasos);

}  // namespace tarvo::app
