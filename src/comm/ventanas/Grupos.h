// How the windows queue tasks for groups.
#pragma once

#include <QString>
#include <vector>

#include "comm/envios/Grupos.h"
#include "comm/motor/gestcomm.h"
#include "core/ventanas/marco/Ventana.h"

namespace tarvo::comm {

struct PeticionTarea {
  TipoTarea clase = TipoTarea::TxHora;
  bool todo = true;
  qint64 desde = 0, hasta = 9999999;
};
// Before a wipe or a zeroing: true when the person, who is told which groups lose what, goes on.
// Cancelar is the default. Of other kinds of task nothing is asked.
bool consientePerder(ventanas::Ventana& quien, const envios::Grupos& deQuien, TipoTarea clase,
                     const std::vector<int>& grupos);
// NuevaTareaMenu for each group. What can't be queued is said: the session's refusal in a box, a
// group that doesn't communicate in the strip of `quien`.
void encolarGrupos(ventanas::Ventana& quien, motor::gestcomm& motor, const std::vector<int>& grupos,
                   const PeticionTarea& que);

}  // namespace tarvo::comm
