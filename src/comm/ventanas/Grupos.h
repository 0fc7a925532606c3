// The operations with which windows queue tasks for groups.
#pragma once

#include <QString>
#include <vector>

#include "comm/ventanas/Servicios.h"
#include "core/ventanas/marco/Ventana.h"

namespace tarvo::comm {

struct PeticionTarea {
  TipoTarea clase = TipoTarea::TxHora;
  bool todo = true;
  qint64 desde = 0, hasta = 9999999;
};
// Asks before a wipe or a zeroing, listing the losses of each group; true if the user goes on.
// Cancelar is the default. Nothing is asked for other kinds of task.
bool consientePerder(ventanas::Ventana& quien, const envios::Grupos& losGrupos,
                     totals::Sesion& sesion, TipoTarea clase, const std::vector<int>& grupos);
// Calls NuevaTareaMenu for each group. Failures are reported: a refusal by the session in a message
// box, a group that doesn't communicate in the strip of `quien`.
void encolarGrupos(ventanas::Ventana& quien, motor::gestcomm& motor, const std::vector<int>& grupos,
                   const PeticionTarea& que);

}  // namespace tarvo::comm
