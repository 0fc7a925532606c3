// The entries of the menus TxCosa and RxCosa: which kind of task each stands for, and how it asks.
#pragma once

#include <QAction>
#include <set>
#include <span>

#include "comm/ventanas/Puertas.h"
#include "comm/ventanas/Servicios.h"
#include "core/ventanas/marco/Contexto.h"

namespace tarvo::comm {

struct EntradaMenu {
  const char16_t* nombre;  // of the action
  TipoTarea clase;
  ModoPedir modo;
};
std::span<const EntradaMenu> entradasMenu();

// Enables an entry when the kind of task has somebody who does it and some group that takes it;
// else its tip says what is missing. A kind that the language hasn't is not shown.
void habilitarEntrada(QAction& accion, const motor::ClaseTarea* clase,
                      const std::set<TipoGrupo>& tipos, const ventanas::Contexto& c);

}  // namespace tarvo::comm
