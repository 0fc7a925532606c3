// The kinds of task that this program knows, with the sender of each that has one; and the tables
// that they keep.
#pragma once

#include "comm/motor/Tarea.h"
#include "core/dao/Pasos.h"

namespace tarvo::tareas {

// All kinds by number and keyword. Those without a sender are known by name, and are refused when
// queued.
motor::RegistroTareas registro();

// The lists received.
dao::TablasDeSala tablasTareas();
// Brings them alone, for who works with this room alone.
Resultado<> asegurarTablasTareas(dao::Database& db);

}  // namespace tarvo::tareas
