// What the engine would lose with the program, and the question before that happens.
#pragma once

#include "comm/motor/gestcomm.h"
#include "core/ventanas/marco/Ventana.h"

namespace tarvo::comm {

// True when no task is left that waits or has failed, when a process watches over them, or when the
// person, who is told which ones they are, goes on. Cancelar is the default.
bool consienteDejarlas(ventanas::Ventana& quien, const motor::gestcomm& motor,
                       const motor::RepertorioTareas& repertorio);

}  // namespace tarvo::comm
