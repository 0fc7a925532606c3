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

// How a state looks.
QString imagenDeEstado(int estado);
ventanas::Estado tonoDeEstado(int estado);
// The engine's own words, or the message of the table; empty without an error.
QString textoProblema(const motor::VistaTarea& tarea, const Textos& textos);

}  // namespace tarvo::comm
