// When a timetable strikes next.
#pragma once

#include <optional>

#include "automation/lenguaje/Proceso.h"

namespace tarvo::automation {

// The first moment after `desde` that a line names; nothing when it names no day.
std::optional<Fecha> proximaVez(const LineaActivacion& linea, Fecha desde);

}  // namespace tarvo::automation
