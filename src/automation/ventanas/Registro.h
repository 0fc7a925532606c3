// The windows of processes, by name: "Automat" (argument "proceso", a file), "EnParMac", "Cronos"
// ("horario", a file), "EdiCron" ("horario"; without one it asks for a name) and "VeoLog"
// ("fichero").
#pragma once

#include "automation/Cronos.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::automation {

// REQUIRES that the engines outlive all windows.
void registrarVentanasAutomation(ventanas::Ventanas& ventanas, Automat& automat, Cronos& cronos,
                                 const Lenguaje& lenguaje, const motor::gestcomm& motor);

}  // namespace tarvo::automation
