// Tasks that the engine would lose if the program ended, and the question before that.
#pragma once

#include "comm/motor/gestcomm.h"
#include "core/ventanas/marco/Ventana.h"

namespace tarvo::comm {

// True if no task is waiting or has failed, if a process is watching over them, or if the user goes
// on after being shown the list of them. Cancelar is the default.
bool consienteDejarlas(ventanas::Ventana& quien, const motor::gestcomm& motor,
                       const motor::RepertorioTareas& repertorio);

}  // namespace tarvo::comm
