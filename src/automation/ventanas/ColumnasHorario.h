// What the grid of a timetable and that of its editor have in common.
#pragma once

#include "automation/lenguaje/Proceso.h"
#include "core/ventanas/parrilla/Columna.h"

namespace tarvo::automation {

// The hour and the seven days, Monday first.
void anadirColumnasMomento(std::vector<ventanas::Columna>& columnas);
// Their values.
void anadirMomento(std::vector<dao::Valor>& valores, const LineaActivacion& linea);

}  // namespace tarvo::automation
