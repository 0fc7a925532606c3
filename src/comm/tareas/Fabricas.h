// The factories of tasks, one for each kind; the file of each kind defines its own.
#pragma once

#include <memory>

#include "comm/motor/Tarea.h"

namespace tarvo::tareas {

using Trabajo = std::unique_ptr<motor::TrabajoTarea>;

Trabajo crearTxPlus(const motor::DatosTarea&, const motor::Entorno&);
Trabajo crearBorrPlu(const motor::DatosTarea&, const motor::Entorno&);
Trabajo crearRxDatPlu(const motor::DatosTarea&, const motor::Entorno&);
Trabajo crearTPreci(const motor::DatosTarea&, const motor::Entorno&);
Trabajo crearTxZero(const motor::DatosTarea&, const motor::Entorno&);
Trabajo crearTxHora(const motor::DatosTarea&, const motor::Entorno&);
Trabajo crearTxCerr(const motor::DatosTarea&, const motor::Entorno&);
Trabajo crearRxPlus(const motor::DatosTarea&, const motor::Entorno&);
Trabajo crearRxGrTot(const motor::DatosTarea&, const motor::Entorno&);
Trabajo crearRxOpera(const motor::DatosTarea&, const motor::Entorno&);
Trabajo crearRxDepar(const motor::DatosTarea&, const motor::Entorno&);
Trabajo crearRxHorar(const motor::DatosTarea&, const motor::Entorno&);
Trabajo crearRxOpHor(const motor::DatosTarea&, const motor::Entorno&);
Trabajo crearRxPedid(const motor::DatosTarea&, const motor::Entorno&);
Trabajo crearRxInven(const motor::DatosTarea&, const motor::Entorno&);

}  // namespace tarvo::tareas
