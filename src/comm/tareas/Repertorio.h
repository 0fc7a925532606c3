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
// Called in the transaction that deletes a group: a later one with its code must not continue its
// lists. The documents stay.
Resultado<> olvidarGrupo(dao::Database& db, int grupo);
// Where that is, for callers that can restore the group: tables with a column GRUPO.
std::vector<QString> tablasDeGrupo();

}  // namespace tarvo::tareas
