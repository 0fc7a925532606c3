// A task as a row of the grid.
#pragma once

#include "comm/motor/gestcomm.h"
#include "core/textos/Textos.h"
#include "core/ventanas/parrilla/ModeloVivo.h"

namespace tarvo::comm {

// REQUIRES that the texts outlive the columns.
std::vector<ventanas::Columna> columnasTareas(const Textos& textos);
// Key: the task's id. `clase`: its kind.
ventanas::FilaViva filaTarea(const motor::VistaTarea& tarea, const motor::ClaseTarea* clase,
                             const Textos& textos);

// The icon of a state; below, its colour.
QString imagenDeEstado(int estado);
ventanas::Estado tonoDeEstado(int estado);
// The engine's own words, or else the message of the error table; without an error, the task's
// result, if any.
QString textoProblema(const motor::VistaTarea& tarea, const Textos& textos);

}  // namespace tarvo::comm
