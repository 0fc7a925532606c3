// The settings of orders and inventories in TARVO.INI: the highest numbers given.
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
