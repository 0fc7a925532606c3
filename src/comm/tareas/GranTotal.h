// The reading of a grand total, which the zeroing of a machine makes too before it goes on with a
// run that was cut off.
#pragma once

#include "comm/tareas/Totales.h"

namespace tarvo::tareas {

std::unique_ptr<Totales> crearGranTotal(const motor::DatosTarea& t, const motor::Entorno& e);

}  // namespace tarvo::tareas
