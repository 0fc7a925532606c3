// Which groups a task may go to, and how the windows queue tasks for them.
#pragma once

#include <QString>
#include <set>
#include <vector>

#include "comm/motor/gestcomm.h"
#include "core/ventanas/marco/Ventana.h"

namespace tarvo::comm {

struct GrupoElegible {
  int codigo = 0;
  QString nombre;  // "0001  Name"
};
// The groups whose kind takes this kind of task, in code order.
Resultado<std::vector<GrupoElegible>> gruposPara(dao::Database& db, const motor::ClaseTarea& clase);
// The kinds of all groups.
Resultado<std::set<TipoGrupo>> tiposDeGrupos(dao::Database& db);

struct PeticionTarea {
  TipoTarea clase = TipoTarea::TxHora;
  bool todo = true;
  qint64 desde = 0, hasta = 9999999;
};
// Before a wipe or a zeroing: true when the person, who is told which groups lose what, goes on.
// Cancelar is the default. Of other kinds of task nothing is asked.
bool consientePerder(ventanas::Ventana& quien, TipoTarea clase, const std::vector<int>& grupos);
// NuevaTareaMenu for each group. What can't be queued is said: the session's refusal in a box, a
// group that doesn't communicate in the strip of `quien`.
void encolarGrupos(ventanas::Ventana& quien, motor::gestcomm& motor, const std::vector<int>& grupos,
                   const PeticionTarea& que);

}  // namespace tarvo::comm
