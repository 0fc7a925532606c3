// A run's progress on disk: one row while it is unfinished, and its queued tasks, which stay for
// its history. A step's effect and its record go in one transaction of the caller's. Rules:
// docs/procesos.md.
#pragma once

#include <QStringList>
#include <set>
#include <vector>

#include "automation/historia/Historial.h"
#include "automation/lenguaje/Parametros.h"
#include "core/dao/Database.h"
#include "core/textos/Textos.h"

namespace tarvo::automation {

// A row of Proceso. The name is in capitals; `lineas` are the steps before any parameter was filled
// in.
struct Ejecucion {
  QString nombre;
  QStringList lineas;
  qint64 numero = 0;  // increases from run to run
  qint64 paso = 0;    // the first step not yet done
  std::vector<qint64> seleccion, ultimos;
  std::set<int> fallidos;  // groups that must not be zeroed in this run
  bool problemas = false;
  Fecha inicio, latido;
  std::vector<Respuesta> respuestas;
  QString huella() const;  // of the steps
};

class Diario {
 public:
  Diario(dao::Database& db, const Textos& textos)
      : db_(db), textos_(textos), historial_(db, textos) {}

  // Creates the tables if missing.
  Resultado<> asegurar();
  // The unfinished run of a process, if there is one. An invalid row is an Error.
  Resultado<std::optional<Ejecucion>> pendiente(const QString& nombre);
  // Assigns the run's number and writes its row; `traza` names its file.
  Resultado<> abrir(Ejecucion& e, const QString& traza);
  Resultado<> anotar(const Ejecucion& e);
  Resultado<> latir(qint64 ejecucion, Fecha ahora);
  Resultado<> conProblemas(qint64 ejecucion);
  Resultado<> cerrar(qint64 ejecucion, FinEjecucion fin, Fecha ahora);

  Resultado<> tareaEnCola(qint64 ejecucion, qint64 paso, int grupo, TipoTarea clase);
  // It was never queued, and isn't when the run is resumed.
  Resultado<> tareaRechazada(qint64 ejecucion, qint64 paso, int grupo, TipoTarea clase,
                             const QString& motivo);
  Resultado<> tareaHecha(qint64 ejecucion, qint64 paso, int grupo, Fecha ahora);
  struct Tarea {
    qint64 paso = 0;
    int grupo = 0;
  };
  // The tasks queued at or after a step and not done, in the order of queuing.
  Resultado<std::vector<Tarea>> tareasPorHacer(qint64 ejecucion, qint64 desdePaso);

  Historial& historial() { return historial_; }

 private:
  Resultado<> anadirTarea(qint64 ejecucion, qint64 paso, int grupo, TipoTarea clase, int hecha,
                          const dao::Valor& motivo);

  dao::Database& db_;
  const Textos& textos_;
  Historial historial_;
};

}  // namespace tarvo::automation
