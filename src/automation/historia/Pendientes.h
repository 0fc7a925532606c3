// What a process should have done with a period and couldn't: accumulate it, take it off the stock,
// export it. It is owed until it is done, be it nights later; a period that is gone owes nothing.
#pragma once

#include <QString>
#include <vector>

#include "core/dao/Database.h"

namespace tarvo::automation {

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

  // Exports, by the mark under which each was tried first: one that came as far as the file is then
  // known again. `orden` counts the export steps of a process from 1, so that a step whose file
  // name was mended does what it owed under the old one.
  struct Exporte {
    QString marca;
    std::vector<qint64> links;
  };
  Resultado<> anotarExporte(const QString& proceso, int orden, const Exporte& exporte);
  // In the order in which they were noted.
  Resultado<std::vector<Exporte>> exportes(const QString& proceso, int orden);
  Resultado<> saldarExporte(const QString& marca);

 private:
  dao::Database& db_;
};

}  // namespace tarvo::automation
