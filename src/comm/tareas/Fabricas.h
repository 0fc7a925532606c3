// The factories of tasks, one for each kind; the file of each kind defines its own.
#pragma once

#include <memory>

#include "comm/motor/Tarea.h"

namespace tarvo::tareas {

using Curso = std::unique_ptr<motor::CursoTarea>;

Curso crearEnvioConfig(const motor::DatosTarea&, const motor::Entorno&);
Curso crearTxPlus(const motor::DatosTarea&, const motor::Entorno&);
Curso crearBorrPlu(const motor::DatosTarea&, const motor::Entorno&);
Curso crearRxDatPlu(const motor::DatosTarea&, const motor::Entorno&);
Curso crearTPreci(const motor::DatosTarea&, const motor::Entorno&);
Curso crearTxZero(const motor::DatosTarea&, const motor::Entorno&);
Curso crearTxHora(const motor::DatosTarea&, const motor::Entorno&);
Curso crearTxCerr(const motor::DatosTarea&, const motor::Entorno&);
Curso crearRxPlus(const motor::DatosTarea&, const motor::Entorno&);
Curso crearRxGrTot(const motor::DatosTarea&, const motor::Entorno&);
Curso crearRxOpera(const motor::DatosTarea&, const motor::Entorno&);
Curso crearRxDepar(const motor::DatosTarea&, const motor::Entorno&);
Curso crearRxHorar(const motor::DatosTarea&, const motor::Entorno&);
Curso crearRxOpHor(const motor::DatosTarea&, const motor::Entorno&);
Curso crearRxPedid(const motor::DatosTarea&, const motor::Entorno&);
Curso crearRxInven(const motor::DatosTarea&, const motor::Entorno&);

}  // namespace tarvo::tareas
