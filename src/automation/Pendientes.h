// What a process should have done with a period and the store refused: accumulated, or taken off
// the stock. It is owed until it is done, be it nights later; a period that is gone owes nothing.
#pragma once

#include <vector>

#include "core/dao/Database.h"

namespace tarvo::automation {

// The table, where it is missing. Run at every start.
Resultado<> asegurarTablaPendientes(dao::Database& db);

struct OrdenPeriodos {
  int verbo = 0;    // of class P
  qint64 tipo = 0;  // of the larger period, 0 for a verb without one
};

class Pendientes {
 public:
  explicit Pendientes(dao::Database& db) : db_(db) {}
  Resultado<> anotar(const OrdenPeriodos& orden, const std::vector<qint64>& links);
  Resultado<std::vector<qint64>> de(const OrdenPeriodos& orden);
  Resultado<> saldar(const OrdenPeriodos& orden, qint64 link);

 private:
  dao::Database& db_;
};

}  // namespace tarvo::automation
