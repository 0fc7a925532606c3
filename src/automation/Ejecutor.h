// Carries out one step on the rooms that it calls. Knows nothing of phases, ticks or the trace: it
// says what came of it.
#pragma once

#include <functional>

#include "automation/Automat.h"
#include "automation/historia/Diario.h"
#include "automation/historia/Pendientes.h"

namespace tarvo::automation {

// What came of a step.
struct Hecho {
  bool completo = true;
  int codigo = 0;                    // of the messages of a process, 0 for none
  std::vector<AvisoHecho> detalles;  // sentences to stand under the step's header
  bool problemas = false;
  bool sesionMovida = false;     // the settings file is to be brought up to date
  std::vector<qint64> periodos;  // that it memorised
  // What is to be written in the transaction that records the step; may be empty.
  std::function<Resultado<>()> anotar;

  void error(int cual) { codigo = cual, problemas = true; }
  void decir(const QString& texto, bool esProblema = true, int grupo = 0) {
    detalles.push_back({grupo, texto, esProblema});
    problemas = problemas || esProblema;
  }
};

QString mensajePaso(int codigo, const Textos& textos);
// What became of a step that the store refused, with the message of the step that it failed.
Hecho deFallo(const Error& error, int codigo = 0);

// Under what rule the engine's tasks are watched.
struct Vigilancia {
  motor::Vigilante* vigilante = nullptr;
  bool borrarSiempre = false;  // nobody is there
  int reintentos = 0;          // of the last call
};

class Ejecutor {
 public:
  Ejecutor(const Taller& taller, Diario& diario) : t_(taller), diario_(diario) {}

  // The step `e.paso` of the run. An Error only where the record of the run could not be written.
  Resultado<Hecho> hacer(const PasoProceso& p, Ejecucion& e, Vigilancia& vigilancia);
  // Queues again a task of a step that was queued before the run was cut off: 0, or the code of its
  // error.
  int repetir(const PasoProceso& p, const Diario::Tarea& tarea);
  // True once the queue is empty; otherwise sets the rule under which the rest is watched.
  bool colaVacia(const PasoControl& espera, Vigilancia& vigilancia);

 private:
  struct Exportacion {
    totals::OpcionesExport como;
    QString nombre;
  };
  Resultado<Hecho> tarea(const PasoTarea& p, Ejecucion& e);
  QString motivoRechazo(int codigo, int grupo, TipoTarea clase) const;
  Hecho sesion(const PasoSesion& p, Ejecucion& e);
  void cerrar(const PasoSesion& p, Ejecucion& e, Hecho& h);
  void noMemorizado(Ejecucion& e, Hecho& h);
  Hecho control(const PasoControl& p);
  Hecho periodos(const PasoPeriodos& p, const Ejecucion& e);
  Hecho crear(const PasoPeriodos& p);
  void decirSolapes(Hecho& h);
  // REQUIRES a verb that acts on the selection, or names its periods.
  Resultado<bool> operacion(const PasoPeriodos& p);
  void pendientes(const PasoPeriodos& p, const std::vector<qint64>& debidos, Hecho& h);
  Hecho selUltimo(const Ejecucion& e);
  Hecho exportar(const PasoExportar& p, const Ejecucion& e);
  void exportarPendientes(const std::vector<Pendientes::Exporte>& viejos, const Exportacion& x,
                          std::vector<qint64>& propios, std::vector<qint64>& saldados, Hecho& h);
  void exportarPropios(const std::vector<qint64>& propios, const Exportacion& x,
                       const QString& marca, std::vector<qint64>& saldados,
                       std::vector<Pendientes::Exporte>& debidos, Hecho& h);
  QString nombrePeriodo(qint64 link) const;
  QString nombrePeriodos(const std::vector<qint64>& links) const;

  const Taller& t_;
  Diario& diario_;
};

}  // namespace tarvo::automation
