// The configuration of a group's machines as it is stored now, as the frames that carry it: one
// list for each machine, or one for the whole group.
#pragma once

#include <optional>
#include <vector>

#include "comm/maquinas/Configuracion.h"
#include "core/ajustes/Ajustes.h"
#include "core/dao/Database.h"

namespace tarvo::configuracion {

inline constexpr int kTodoElGrupo = -1;

struct Destino {
  int grupo = 0;
  TipoGrupo tipo = TipoGrupo::Balanzas;
  int addr = 0;                     // of the group on its line, kind 2
  std::optional<int> maquina = {};  // only this one
};

struct Envio {
  int maquina = kTodoElGrupo;  // its number in the group
  int addr = 0;                // of its frames
  maquinas::Piezas piezas;
  maquinas::Diferencias diferencias;  // from what is stored, in frames that can be sent
  // Of all that it carries.
  QString huella() const;
};

// The kinds of task that send configuration, in the order in which an editor sends its changes.
inline constexpr TipoTarea kClases[] = {TipoTarea::TxCfBal, TipoTarea::TxEtiq, TipoTarea::TxCnfig,
                                        TipoTarea::TxTecla, TipoTarea::TxTick};
bool llevaConfiguracion(TipoTarea clase);
// Whether a kind of group takes this kind of task.
bool valePara(TipoTarea clase, TipoGrupo tipo);

// In order of the machines' numbers; nothing for a group without machines, or without that one. The
// options of a group go to all of its machines whichever is asked for. REQUIRES a kind that
// carries configuration, which the group takes.
Resultado<std::vector<Envio>> prepararEnvio(dao::Database& db, const Ajustes& ajustes,
                                            TipoTarea clase, const Destino& destino);

}  // namespace tarvo::configuracion
