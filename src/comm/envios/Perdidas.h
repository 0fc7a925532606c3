// What a wipe or a zeroing takes from groups for good: the data of the question before it.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "core/dao/Database.h"
#include "core/valores/Fecha.h"

namespace tarvo::envios {

struct Perdida {
  int grupo = 0;
  QString nombre;
  qint64 articulos = 0;       // that the group holds, as far as it confirmed them
  qint64 deSeccion = 0;       // of its section, which it may hold
  bool hayVentas = false;     // collected, and in no period yet
  qint64 ventas = 0;          // their amount, minor units of stored money
  std::optional<Fecha> cero;  // when it was zeroed last, as far as it is known
};

// In the order of `grupos`; those that don't exist are left out.
Resultado<std::vector<Perdida>> loQueSePierde(dao::Database& db, std::span<const int> grupos);

}  // namespace tarvo::envios
