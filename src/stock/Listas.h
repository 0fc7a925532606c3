// The rows of the stock window, for one warehouse or all together. Internal to the room.
#pragma once

#include "stock/Almacenes.h"

namespace tarvo::stock {

struct Vista {
  int seccion = 0;  // 0 all
  int vista = 0;    // 0 all articles, 1 with stock, 2 with movement
  int orden = 0;    // 0 section and code, 1 name
};

Resultado<std::vector<Almacenes::FilaStock>> listarStock(dao::Database& db,
                                                         std::optional<int> almacen,
                                                         const Vista& como);

}  // namespace tarvo::stock
