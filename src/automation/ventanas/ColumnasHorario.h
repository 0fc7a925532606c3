// Shared by the grid of a timetable and that of its editor.
#pragma once

#include "automation/lenguaje/Proceso.h"
#include "core/ventanas/parrilla/Columna.h"

namespace tarvo::automation {

// Adds the columns of the hour and of the seven days, Monday first.
void anadirColumnasMomento(std::vector<ventanas::Columna>& columnas);
// Adds their values.
void anadirMomento(std::vector<dao::Valor>& valores, const LineaActivacion& linea);

}  // namespace tarvo::automation
