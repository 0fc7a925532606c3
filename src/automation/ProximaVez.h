// The next activation of a timetable.
#pragma once

#include <optional>

#include "automation/lenguaje/Proceso.h"

namespace tarvo::automation {

// A line's first activation after `desde`; nothing when it names no day.
std::optional<Fecha> proximaVez(const LineaActivacion& linea, Fecha desde);

}  // namespace tarvo::automation
