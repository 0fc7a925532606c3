// The articles that groups have yet to get, counted for a notice.
#pragma once

#include <vector>

#include "core/dao/Database.h"
#include "core/valores/Fecha.h"

namespace tarvo::envios {

struct Debe {
  int grupo = 0;
  QString nombre;
  qint64 articulos = 0;  // that the next optimised sending would carry or delete
  bool vacio = false;    // its machines hold no articles: they were wiped
  bool operator==(const Debe&) const = default;
};

// Communicating groups whose articles are known one by one, with an earlier sending, that aren't up
// to date; by number. It only reads, and takes as long as reading their sections.
Resultado<std::vector<Debe>> loQueSeDebe(dao::Database& db, Fecha ahora);

}  // namespace tarvo::envios
