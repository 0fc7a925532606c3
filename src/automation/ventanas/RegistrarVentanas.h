// The windows of processes, by their doors: see Puertas.h.
#pragma once

#include "automation/Cronos.h"
#include "automation/historia/Pendientes.h"
#include "automation/ventanas/ConsienteOlvidos.h"
#include "automation/ventanas/Puertas.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::automation {

// The engines used by the windows.
struct Motores {
  Automat& automat;
  Cronos& cronos;
  const Lenguaje& lenguaje;
  const motor::gestcomm& motor;
  Pendientes& debidos;
  ConsienteOlvidos consiente = {};
};

// REQUIRES that the engines outlive all windows.
void registrarVentanasAutomation(ventanas::Ventanas& ventanas, const Motores& motores);

}  // namespace tarvo::automation
