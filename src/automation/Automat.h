// The runner of a process: steps through a list, checks waits on a 500 ms tick, drives engine,
// session, periods and export, writes the trace, and keeps its progress on disk. Phases and rules:
// docs/procesos.md.
#pragma once

#include <functional>
#include <memory>
#include <set>
#include <utility>

#include "automation/lenguaje/Proceso.h"
#include "comm/motor/gestcomm.h"
#include "totals/intercambio/XporTot.h"
#include "totals/libros/CerrSes.h"
#include "totals/periodos/VerTot.h"

namespace tarvo::automation {

// Answers parameter steps. The unattended one looks them up among --dato; a window asks.
class Preguntas {
 public:
  virtual ~Preguntas() = default;
  virtual std::optional<qint64> PromptNum(const QString& nombre, const QString& pregunta) = 0;
  virtual std::optional<QString> PromptStr(const QString& nombre, const QString& pregunta) = 0;
  virtual std::optional<std::pair<Fecha, Fecha>> PromptFch(const QString& nombre,
                                                           const QString& pregunta) = 0;
};

enum class ResultadoProceso : int { Bien = 0, Problemas = 1, Abortado = 2 };

enum FaseProceso : int {
  kCargado = 0,
  kEjecutando = 1,
  kPasoAPaso = 2,
  kDetenidoEnPaso = 3,
  kConfirmando = 4,
  kAbortando = 5,
  kAbortado = 6,
  kAcabando = 7,
  kAcabado = 8,
};

// The state of a step of the current run. EnCola: its queued tasks haven't ended yet.
enum class EstadoPaso : int { Pendiente, EnCurso, Hecho, ConProblemas, Interrumpido, EnCola };
struct VistaPaso {
  QString texto;  // its text as a line
  QString dicho;  // its effect, in words
  EstadoPaso estado = EstadoPaso::Pendiente;
  QString motivo;  // of its first problem
};

// What the run under way still has to do, and does now, with each group.
struct CursoEjecucion {
  qint64 numero = 0;
  bool aTodos = false;                          // steps to come ask all groups that communicate
  std::set<int> porPedir;                       // groups that steps to come name
  std::set<std::pair<int, TipoTarea>> enLinea;  // tasks whose frames are passing
};

// An observer of a run. It may not start, stop or destroy the runner from within.
class ObservadorAutomat {
 public:
  // The phase, the current step or the outcome of one has changed, or a list was loaded.
  virtual void automatCambiado() {}
  // A line has gone to the trace.
  virtual void lineaEscrita(const QString& /*linea*/) {}

 protected:
  ~ObservadorAutomat() = default;
};

// The objects the runner works on; owned by Aplicacion.
struct Taller {
  dao::Database& db;
  Ajustes& ajustes;
  Reloj& reloj;
  totals::Sesion& sesion;
  motor::gestcomm& motor;
  const motor::RepertorioTareas& repertorio;
  totals::CerrSes& cerrSes;
  totals::VerTot& verTot;
  totals::XporTot& xporTot;
  const Textos& textos;
};

class Automat final : private motor::Vigilante {
 public:
  Automat(Taller taller, Preguntas& preguntas);
  ~Automat();

  // Lines as they go to the trace file.
  std::function<void(const QString&)> alEscribir;
  // The run has ended, by itself or aborted; called from the event loop, never inside PROCESO. It
  // may destroy this object or start another run.
  std::function<void(ResultadoProceso)> alTerminar;
  // The same for a delayed run, called first. Set by Cronos.
  std::function<void(ResultadoProceso)> alTerminarDiferida;
  // A window shows the runs: the end of a delayed one is reported by cerrado(), when the window
  // closes, so that the next one doesn't begin while a person is still reading.
  bool avisarAlCerrar = false;
  // Unattended: failed tasks are dropped as in a delayed run.
  bool desatendido = false;
  // An abort from outside, such as the shutdown of the computer: the record of the run stays open,
  // so that the same process, run again, resumes it.
  bool conservarAlAbortar = false;

  // PROCESO: loads a list and starts it. `traza` empty: a direct run, whose trace is
  // HomeDir/nombre.TZA; otherwise a delayed one, whose trace is `traza` with the extension .TZC. An
  // interrupted run of the same process is resumed. REQUIRES that none is under way. `omitidas` are
  // reported as problems at its beginning.
  void PROCESO(std::vector<PasoProceso> pasos, const QString& traza, const QString& nombre,
               const QStringList& omitidas = {});
  void ejecutar();  // run button
  void retener();   // pause button
  void paso();      // step button
  void abortar();   // stop, once confirmed
  // The abort question is on the screen (true) or was answered with no: nothing moves meanwhile.
  void confirmando(bool pregunta);
  void cerrado();    // see avisarAlCerrar
  int fase() const;  // FaseProceso
  ResultadoProceso resultado() const;
  int pasoActual() const;
  // The number of the run under way; nothing while there is none.
  std::optional<qint64> ejecucion() const;
  // The same with what it does; a step whose group a parameter is still to fill names none.
  std::optional<CursoEjecucion> curso() const;
  bool enMarcha() const;  // a run is under way, moving or held
  bool libre() const;     // none is, and no window is in the middle of a change
  bool diferida() const;
  const QString& nombre() const;  // of the process; empty before the first one
  const std::vector<VistaPaso>& pasos() const;
  // The latest lines of this run, as in the trace file.
  const QStringList& escrito() const;
  QString rutaTraza() const;
  // REQUIRES dejarDeObservar before the observer is destroyed.
  void observar(ObservadorAutomat& quien);
  void dejarDeObservar(ObservadorAutomat& quien);

 private:
  void InformeProblema(TipoTarea clase, int grupo, int error, int estado, qint64 codigo) override;
  void InformeRetry(TipoTarea clase, int grupo, int error, int estado, qint64 codigo) override;
  void InformeAviso(const totals::Aviso& aviso) override;
  Resultado<> TareaHecha(const motor::DatosTarea& tarea) override;
  struct Interior;
  std::unique_ptr<Interior> d;
};

}  // namespace tarvo::automation
