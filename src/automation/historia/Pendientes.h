// What a process should have done with a period and couldn't: accumulate it, take it off the stock,
// export it. It is owed until it is done, be it nights later; a period that is gone owes nothing.
#pragma once

#include <QString>
#include <vector>

#include "automation/lenguaje/Proceso.h"
#include "core/dao/Database.h"

namespace tarvo::automation {

struct OrdenPeriodos {
  VerboPeriodos verbo = VerboPeriodos::Acumular;
  qint64 tipo = 0;  // of the larger period, 0 for a verb without one
};

class Pendientes {
 public:
  explicit Pendientes(dao::Database& db) : db_(db) {}
  Resultado<> anotar(const OrdenPeriodos& orden, const std::vector<qint64>& links);
  Resultado<std::vector<qint64>> de(const OrdenPeriodos& orden);
  Resultado<> saldar(const OrdenPeriodos& orden, qint64 link);

  // Where an export step sends its periods. `orden` counts the export steps of a process from 1, so
  // that a step whose file name was mended does what it owed under the old one.
  struct Destino {
    QString proceso;
    int orden = 1;
    QString ruta;
  };
  // Periods that were tried under one mark: one that came as far as the file is then known again.
  struct Exporte {
    QString marca;
    std::vector<qint64> links;
  };
  // A period that is owed to this step or to this file already is not owed twice: the first mark
  // stays.
  Resultado<> anotarExporte(const Destino& destino, const Exporte& exporte);
  // What the step owes, in the order in which it was noted.
  Resultado<std::vector<Exporte>> exportes(const Destino& destino);
  // The period is in the file: neither this step nor any other owes it there.
  Resultado<> saldarExporte(const Destino& destino, qint64 link);
  // Takes away what is owed of periods that are gone.
  Resultado<> limpiar();

  // One thing owed, as a person is shown it.
  struct Debido {
    enum class Que { Acumular, Descontar, Exportar } que = Que::Exportar;
    qint64 link = 0;
    int clase = 0;  // kind of the period
    Fecha desde, hasta;
    QString descripcion;
    int mayor = 0;             // Acumular: kind of the larger period
    QString proceso, fichero;  // Exportar
    int orden = 0;
  };
  // Exports first, each in the order in which it was noted.
  Resultado<std::vector<Debido>> todos();
  // It isn't owed any more though it was never done. False when it wasn't owed.
  Resultado<bool> olvidar(const Debido& debido);

 private:
  dao::Database& db_;
};

}  // namespace tarvo::automation
