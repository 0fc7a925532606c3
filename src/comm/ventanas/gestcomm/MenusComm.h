// The entries of the menus TxCosa and RxCosa: the kind of task and the dialog of each.
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

// Enables an entry if its kind of task is implemented and some group can receive it; otherwise its
// tool tip states the reason. A kind missing in the current language is hidden.
void habilitarEntrada(QAction& accion, const motor::ClaseTarea* clase,
                      const std::set<TipoGrupo>& tipos, const ventanas::Contexto& c);

}  // namespace tarvo::comm
