// The kinds of task that this program knows, with their senders if any, and the tables that they
// keep.
#pragma once

#include "comm/motor/Tarea.h"
#include "core/dao/Pasos.h"

namespace tarvo::tareas {

// All kinds by number and keyword. Those without a sender are known by name only, and refused when
// queued.
motor::RepertorioTareas repertorio();

// The lists received.
dao::TablasDeSala tablasTareas();
// Creates only these, for users of this room alone.
Resultado<> asegurarTablasTareas(dao::Database& db);

}  // namespace tarvo::tareas
