// What the question before a wipe or a zeroing tells of each group.
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
  qint64 articulos = 0;       // held by the group, as far as confirmed
  qint64 deSeccion = 0;       // of its section, possibly held
  std::optional<Fecha> cero;  // when it was last zeroed, if known
};

// In the order of `grupos`; those that don't exist are left out.
Resultado<std::vector<Perdida>> loQueSePierde(dao::Database& db, std::span<const int> grupos);

}  // namespace tarvo::envios
