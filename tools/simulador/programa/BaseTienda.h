// The groups of a shop's database as machines: its scales, operators and articles. The file is only
// read.
#pragma once

#include <map>

#include "simulador/programa/Plan.h"

namespace tarvo::simulador {

struct GrupoTienda {
  int puerto = 0;  // of the access text, if the group is reached by TCP/IP; else 0
  std::vector<PlanMaquina> maquinas;  // one, or one for each register
};

// By group code. A missing file, or one that is no database of the program, is an error with the
// store's own message.
Resultado<std::map<int, GrupoTienda>> leerTienda(const QString& ruta);

}  // namespace tarvo::simulador
