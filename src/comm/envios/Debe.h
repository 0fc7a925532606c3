// What groups have yet to get of the catalogue, counted for a notice.
#pragma once

#include <vector>

#include "core/dao/Database.h"
#include "core/valores/Fecha.h"

namespace tarvo::envios {

struct Debe {
  int grupo = 0;
  QString nombre;
  qint64 articulos = 0;  // that the next optimised sending would carry or delete
  bool vacio = false;    // its machines hold none of them: they were wiped
  bool operator==(const Debe&) const = default;
};

// Groups that communicate, of whose articles the books know one by one, that have been sent
// something before and aren't up to date; by number. It only reads, and takes as long as reading
// their sections.
Resultado<std::vector<Debe>> loQueSeDebe(dao::Database& db, Fecha ahora);

}  // namespace tarvo::envios
