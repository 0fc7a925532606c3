// How far a run has come, on disk: one row while it is unfinished, and the tasks that it queued,
// which stay for its history.
// What a step does and the record that it is done go in one transaction of the caller's. Rules:
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

// A row of Proceso. The name is in capitals; `lineas` are the steps as they were before any
// parameter was filled in.
struct Ejecucion {
  QString nombre;
  QStringList lineas;
  qint64 numero = 0;  // grows from run to run
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

  // Makes the tables when they are missing.
  Resultado<> asegurar();
  // The unfinished run of a process, if there is one. A row that can't be understood is an Error.
  Resultado<std::optional<Ejecucion>> pendiente(const QString& nombre);
  // Gives the run its number and writes its row; `traza` names its file.
  Resultado<> abrir(Ejecucion& e, const QString& traza);
  Resultado<> anotar(const Ejecucion& e);
  Resultado<> latir(qint64 ejecucion, Fecha ahora);
  Resultado<> conProblemas(qint64 ejecucion);
  Resultado<> cerrar(qint64 ejecucion, FinEjecucion fin, Fecha ahora);

  Resultado<> tareaEnCola(qint64 ejecucion, qint64 paso, int grupo, TipoTarea clase);
  // It was never queued, and isn't when the run is gone on with.
  Resultado<> tareaRechazada(qint64 ejecucion, qint64 paso, int grupo, TipoTarea clase,
                             const QString& motivo);
  Resultado<> tareaHecha(qint64 ejecucion, qint64 paso, int grupo, Fecha ahora);
  struct Tarea {
    qint64 paso = 0;
    int grupo = 0;
  };
  // What was queued at or after a step and isn't done, in the order in which it was queued.
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
