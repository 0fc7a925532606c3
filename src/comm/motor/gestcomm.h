// The engine that carries work to the machines: a queue of tasks, channels, one 500 ms tick, the
// retry rule. State tables, transitions and rules: docs/motor.md. It knows no widgets and no kind
// of task by number.
#pragma once

#include <memory>
#include <set>
#include <vector>

#include "comm/enlace/comtvIP.h"
#include "comm/motor/Tarea.h"

namespace tarvo::motor {

// The watcher of the tasks: the runner of processes.
class Vigilante {
 public:
  virtual void InformeProblema(TipoTarea clase, int grupo, int error, int estado,
                               qint64 codigo) = 0;
  virtual void InformeRetry(TipoTarea clase, int grupo, int error, int estado, qint64 codigo) = 0;
  // A sentence about a group that isn't an error of a frame: a short record, decreasing counters...
  virtual void InformeAviso(const totals::Aviso& aviso) = 0;
  // A task has ended well; called inside the transaction that stores its readings (so that the
  // runner's record agrees with it).
  virtual Resultado<> TareaHecha(const DatosTarea& tarea) = 0;

 protected:
  ~Vigilante() = default;
};

// For a window or a test that shows the activity; every call is optional.
class Observador {
 public:
  virtual ~Observador() = default;
  virtual void colaCambiada() {}
  virtual void tareaCambiada(int /*id*/) {}
  virtual void canalCambiado(int /*canal*/) {}
  // All queued work is done, after TerminaCuandoPuedas.
  virtual void acabado() {}
};

// A task as a window sees it.
struct VistaTarea {
  DatosTarea datos;
  int Estado = 0, Error = 0, Traza = -1, Canal = -1;
  int FallosEnlace = 0, FallosTrama = 0;
  bool Retenida = false;
  QString textoError;  // the engine's own words when Error is not a code of the table, or what a
                       // task that ended well left out
  QString paso;
  int Addr = -1;          // of the last machine addressed; -1 before the first frame
  QString trajo;          // what a successful task read or left in the machine
  bool descansa = false;  // given up, and to be retried automatically
};
struct VistaCanal {
  int EstadoCanal = 0, TareaCanal = -1, FallosCierre = 0;
  QString NombreEnlace, etiqueta;
  bool portadora = false;  // a modem with its line up
  bool operator==(const VistaCanal&) const = default;
};

// What has become of a requested task.
enum class Pedida : int {
  EnCola,
  YaUsada,      // refused by the session rule
  DestinoMalo,  // no such group, a kind not valid for it, or a group that doesn't communicate
  Repetida,     // a reading or a zeroing of machines that another group has
};

class gestcomm final : private enlace::ClienteEnlace {
 public:
  gestcomm(Entorno entorno, enlace::Enlaces& enlaces, const RepertorioTareas& repertorio);
  ~gestcomm();

  // `paso`: the requesting step of a process.
  Pedida NuevaTarea(int grupo, bool todo, qint64 desde, qint64 hasta, TipoTarea clase,
                    qint64 paso = -1);
  // Which group with a lower code has machines of this one at the same address, in words; empty for
  // none. Those of this one are neither read nor zeroed.
  Resultado<QString> MismasMaquinas(int grupo) const;
  // Has no effect towards manual while the mode is fixed.
  void CambioAModo(bool automatico);
  // A process drives the tasks: no one else may stop them by switching to manual.
  void FijarModo(bool fijo);
  bool ModoFijado() const;
  bool ModoAutomatico() const;

  void VigilaProcesos(int reintentos, bool borrarFallos, Vigilante* vigilante);
  struct Cuenta {
    int enCurso = 0, fallidas = 0, total = 0;
  };
  bool Vigilando() const;  // the tasks have a watcher
  Cuenta CuantosQuedan() const;
  // The groups whose reading failed or wasn't accepted; they are not zeroed.
  const std::set<int>& GruposFallidos() const;
  void anadirGrupoFallido(int grupo);

  // The session's new state: 1 from 0 opens one, 0 closes it without memorising.
  Resultado<bool> LaSesion(int nuevo);

  // The operator's commands, by task id.
  void AvanzarTarea(int id);
  void PausarTarea(int id);
  void DetenerTarea(int id);
  void EliminarTarea(int id);
  // Undoes the latest EliminarTarea not yet undone: the task is requested anew, in its old place.
  // Nothing if there is none.
  std::optional<Pedida> ReponerTarea();
  bool hayQuitadas() const;
  // A group is to be deleted: whether no task of it is under way or belongs to a process. Ocupado
  // otherwise, with a sentence.
  Resultado<> puedeIrse(int grupo) const;
  int tareasDe(int grupo) const;
  // It is deleted: its tasks leave the queue and can't be put back. As puedeIrse.
  Resultado<> olvidarGrupo(int grupo);
  // It has been stored, perhaps under another code: its tasks that wait go to it as it is now, from
  // their beginning if that makes a difference.
  void grupoCambiado(int antes, int ahora);
  // Retries now all tasks that failed, were rejected, stopped while opening or not sent, with their
  // attempts counted anew. Returns their number.
  int ReintentarTodo();
  bool hayReintentables() const;
  // Stops and empties the queue; repeated until it is empty.
  void terminator();
  // Asks all links to close. alCerrar() runs once every channel is idle; an unresponsive link is
  // dropped.
  void cerrar(std::function<void()> alCerrar);
  // Notifies observers once, when the queue is empty and every channel idle. An abandoned task that
  // stays in the queue delays this, so that a person sees it. False cancels it.
  void TerminaCuandoPuedas(bool si = true);
  bool puedeCerrar() const;  // no task opening, transferring or held

  std::vector<VistaTarea> tareas() const;
  // The tasks that would be lost with the program: under way, waiting or failed.
  std::vector<VistaTarea> pendientes() const;
  std::optional<VistaTarea> tarea(int id) const;
  std::vector<VistaCanal> canales() const;
  // The use of channels was changed in the settings: closed channels follow it now, the others when
  // they close.
  void cambiaronCanales();
  // Adds an observer, which must leave before it dies. Null removes all.
  void observar(Observador* observador);
  void dejarDeObservar(Observador* observador);

 private:
  void Abrir_Evento(int canal, int error) override;
  void Cerrar_Evento(int canal, int error) override;
  void EnvioVEK_Evento(int canal, int error, int addr, int codigo,
                       const QByteArray& datos) override;
  void EnvioNDL_Evento(int canal, int error) override;
  void ReciboNDL_Evento(int canal, int error, int codigo, const QByteArray& datos) override;
  void ReciboVEK_Evento(int canal, int error, int addr, int codigo,
                        const QByteArray& datos) override;
  void CD_Evento(int canal, bool portadora) override;
  bool encaja(int canal, int addr, int codigo, const QByteArray& datos) override;
  struct Interior;
  std::unique_ptr<Interior> d;
};

// The texts of an error code: heading, message and detail, each possibly empty. Table:
// docs/protocolos.md.
struct TextosError {
  QString cabecera, mensaje, detalle;
};
TextosError textosError(int codigo, const Textos& textos);

}  // namespace tarvo::motor
