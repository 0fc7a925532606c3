// The kinds of task that this program knows, with the sender of each that has one; and the tables
// that they keep.
#pragma once

#include "comm/motor/Tarea.h"

namespace tarvo::tareas {

// All kinds by number and keyword. Those without a sender are known by name, and are refused when
// queued.
motor::RegistroTareas registro();

// Makes the tables of received lists that are missing. Cheap when all are there.
Resultado<> asegurarTablasTareas(dao::Database& db);

}  // namespace tarvo::tareas
