// The door of the test of a connection.
#pragma once

#include "comm/conexion/GrupoProbado.h"
#include "core/ventanas/marco/Puerta.h"

namespace tarvo::conexion {

// Tries it at once. `nombre`: of the group.
struct PuertaProbar {
  static constexpr QStringView kNombre = u"ProbarConexion";
  QString nombre = {};
  GrupoProbado grupo = {};
};

}  // namespace tarvo::conexion
