// Operations on periods that a process should have done and couldn't: accumulate, take off the
// stock, sum, export. Each is owed until it is done, even nights later; nothing is owed for a
// deleted period, unless it is restored, and what is owed of an emptied one waits while it may be.
#pragma once

#include <QString>
#include <vector>

#include "automation/lenguaje/Proceso.h"
#include "core/dao/Database.h"

namespace tarvo::automation {

struct OrdenPeriodos {
  VerboPeriodos verbo = VerboPeriodos::Acumular;
  qint64 tipo = 0;  // of the larger period, 0 for the stock, kEnSuma for a sum
  static constexpr qint64 kEnSuma = -1;
};

class Pendientes {
 public:
  explicit Pendientes(dao::Database& db) : db_(db) {}
  Resultado<> anotar(const OrdenPeriodos& orden, const std::vector<qint64>& links);
  Resultado<std::vector<qint64>> de(const OrdenPeriodos& orden);
  Resultado<> saldar(const OrdenPeriodos& orden, qint64 link);

  // The target of an export step.
  struct Destino {
    QString proceso;
    QString nombre;    // of the file, as the step writes it: it may contain the date
    QString ruta;      // the file itself, as it is kept in the database
    QString absoluta;  // the same, from the root
  };
  // A period owed to a file, and the mark under which it was tried: one that reached the file is
  // then recognised.
  struct Exporte {
    QString marca, ruta;
    qint64 link = 0;
    // The period is to be deleted once it is in the file; not known of a debt noted earlier on.
    std::optional<bool> borrar;
    QString motivo = {};  // why it failed, as it was told last
  };
  // A period already owed to this file is not owed twice: the first mark stays, and the wish to
  // delete it.
  Resultado<> anotarExporte(const Destino& destino, const Exporte& exporte);
  // What is owed to the step's file, whichever process noted it, and to the files that its name
  // meant on other days. In the order it was noted.
  Resultado<std::vector<Exporte>> exportes(const Destino& destino);
  // It failed again, for this reason.
  Resultado<> anotarMotivo(const Exporte& exporte);
  // The period is in the file.
  Resultado<> saldarExporte(const Exporte& exporte);
  // Removes debts for deleted periods, unless these can still be restored.
  Resultado<> limpiar();

  // One debt, for display.
  struct Debido {
    // Borrar: it has been exported to be deleted, and goes once nothing else is owed of it.
    enum class Que { Acumular, Descontar, Sumar, Exportar, Borrar } que = Que::Exportar;
    qint64 link = 0;
    int clase = 0;  // kind of the period
    Fecha desde, hasta;
    QString descripcion;
    int mayor = 0;  // Acumular: kind of the larger period
    // Exportar. `fichero` is empty for a debt that was noted without its file.
    QString proceso, fichero;
    QString motivo;             // Exportar: why it failed; empty if that isn't known
    bool luegoSeBorra = false;  // Exportar
    qint64 numero = 0;
  };
  // Exports first, deletions last, each kind in the order it was noted.
  Resultado<std::vector<Debido>> todos();
  // Cancels a debt without doing it. False when it wasn't owed.
  Resultado<bool> olvidar(const Debido& debido);

 private:
  dao::Database& db_;
};

}  // namespace tarvo::automation
