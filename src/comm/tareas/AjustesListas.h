// What TARVO.INI keeps for orders and inventories: the highest numbers given.
#pragma once

namespace tarvo {
struct SalaDeAjustes;
}

namespace tarvo::tareas {

struct AjustesListas {
  int NumeroPedido = 0, NumeroInventario = 0;
};

SalaDeAjustes ajustesListas();

}  // namespace tarvo::tareas
