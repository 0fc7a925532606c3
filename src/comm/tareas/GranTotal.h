// The reading of a grand total, which a zeroing also uses before it continues an interrupted run.
#pragma once

#include "comm/tareas/Totales.h"

namespace tarvo::tareas {

std::unique_ptr<Totales> crearGranTotal(const motor::DatosTarea& t, const motor::Entorno& e);

}  // namespace tarvo::tareas
