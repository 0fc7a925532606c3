// The readings that a zeroing uses as well: of a grand total, before it continues an interrupted
// run, and to see whether a machine obeyed; of a register's articles, for the latter.
#pragma once

#include "comm/tareas/Totales.h"

namespace tarvo::tareas {

std::unique_ptr<Totales> crearGranTotal(const motor::DatosTarea& t, const motor::Entorno& e);
std::unique_ptr<Totales> crearArticulosDeCaja(const motor::DatosTarea& t, const motor::Entorno& e);

}  // namespace tarvo::tareas
