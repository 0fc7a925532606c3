// A queued communications task, and the interface of its kind towards the engine. The engine knows
// no kind by number: a kind is one file of comm/tareas that registers a ClaseTarea.
#pragma once

#include <QByteArray>
#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "comm/enlace/ModoEnvio.h"
#include "core/ajustes/Ajustes.h"
#include "core/dao/Database.h"
#include "core/textos/Textos.h"
#include "core/tiempo/Reloj.h"
#include "core/valores/Tipos.h"
#include "totals/libros/Sesion.h"

namespace tarvo::motor {

enum EstadoTarea : int {
  kEnEspera = 0,
  kAbriendo = 1,
  kAperturaFallida = 2,
  kTransfiriendo = 3,
  kTerminado = 4,
  kRechazado = 5,
  kInterrumpido = 6,
  kRetenido = 7,
  kDetenido = 8,
};
QString TextoEstado(int estado, const Textos& textos);

// Error codes of the engine itself, besides those of the links.
inline constexpr int kErrorTiempo = 6;  // the link gave no event within any time that it may take
inline constexpr int kErrorTrama = 7;   // an unreadable record
inline constexpr int kErrorDetenido = 13;  // the operator stopped the opening: never retried
inline constexpr int kErrorCanal = 14;     // the channel doesn't suit the group
// The link was lost while in use: a modem's carrier, a TCP connection, a cable or connector.
inline constexpr int kErrorPortadora = 29, kErrorCaidaTcp = 30, kErrorCaida = 32;
constexpr int errorDeCaida(TipoAcceso remoto) {
  return remoto == TipoAcceso::Modem   ? kErrorPortadora
         : remoto == TipoAcceso::TcpIp ? kErrorCaidaTcp
                                       : kErrorCaida;
}
inline constexpr int kErrorSuprimido = 22;  // not sent, so that no sale is lost: never retried
inline constexpr int kErrorAlmacen = 99;    // the store failed; textoError has the message

// Group and request of a task; filled by the engine from GRUPOS and BZAS when it is queued.
struct DatosTarea {
  int Id = 0;
  TipoTarea Clase = TipoTarea::TxHora;
  int Grupo = 0;
  int Baudios = 0;
  TipoAcceso Remoto = TipoAcceso::Ninguno;
  int CanalDirecto = 0;  // of a direct cable
  QString Telefono;      // phone number, host text or link name
  int Seccion = 1, Tarifa = 0;
  TipoGrupo Tipo = TipoGrupo::Balanzas;
  Protocolo protocolo = Protocolo::Vek;
  int Addr = 0;
  std::vector<int> Direcciones;  // Addr of each BZAS row, in key order
  bool Todo = true;
  qint64 Desde = 0, Hasta = 9999999;
  qint64 paso = -1;  // step of the requesting process, for the runner's record; -1 for none
  bool operator==(const DatosTarea&) const = default;
};

// The next step of a task.
struct Siguiente {
  enum Que { Enviar, Pedir, EsperarVEK, EsperarNODAL, Fin } que = Fin;
  int addr = 0;
  int codigo = 0;
  QByteArray datos;
  int timeOut = 0;           // ms to wait for the answer; 0 for the setting TimeOut
  enlace::ModoEnvio modo{};  // of Enviar
  static Siguiente fin() { return {}; }
};

// The resources of a task. References live as long as the engine.
struct Entorno {
  dao::Database& db;
  const Ajustes& ajustes;
  Reloj& reloj;
  totals::Sesion& sesion;
  const Textos& textos;
  // Why none of a section's articles may be sent for now, in words; nothing if they may. An empty
  // function: always.
  std::function<Resultado<std::optional<QString>>(int seccion)> enEspera = {};
};

// The run of one task, made at its first connection and kept over retries. Nothing here knows of
// links or channels. A failed call fails the frame: the retry rule decides. A failure of class
// Formato or of the store is reported, with a sentence that names the group and the item being
// read; one of class Comunicacion has the code of a refusal; one with number kErrorSuprimido ends
// the task. A retry must not lose data from a machine, and no machine may be told to forget data
// before they are on disk.
class CursoTarea {
 public:
  virtual ~CursoTarea() = default;
  // SiguienteTrama: what to send or wait for now; Fin if TareaAcabada. Called again after a retry,
  // it gives the same step.
  virtual Resultado<Siguiente> siguiente() = 0;
  // Does this frame answer the last question of siguiente()?
  virtual bool encaja(int addr, int codigo, const QByteArray& datos) const = 0;
  // Takes the answer and moves on to the next step (decoder and SiguientePaso). For a NODAL
  // acknowledgement codigo is 0 and datos empty.
  virtual Resultado<> respuesta(int addr, int codigo, const QByteArray& datos) = 0;
  // The next answer doesn't follow the one before it by its number: a frame of the machine may have
  // been lost.
  virtual void salto() {}
  // The question of the next answer went out more than once.
  virtual void repetida() {}
  // The task continues after a failure or on a new link: a list that must start again drops its
  // data of the present machine.
  virtual void reanudar() {}
  // The machine has not answered the present step, or refused it; with the code. True if
  // siguiente() has something else to do on this link; the failure doesn't count then.
  virtual bool sinRespuesta(int /*error*/) { return false; }
  virtual bool rechazada(int /*error*/) { return false; }
  // No step follows for now, since one failed, the link was lost or the operator holds the task:
  // finished work goes to disk.
  virtual void reposo() {}
  // ReglaReintento saw a failure of this task.
  virtual void fallo() {}
  // CierreTarea: stores the readings, marks the session. If it fails, the task has failed and is
  // retried.
  virtual Resultado<std::vector<totals::Aviso>> cerrar() = 0;
  // The task is given up; returns the notices about it.
  virtual std::vector<totals::Aviso> abandonar() { return {}; }
  // What it read, wrote or left in the machine, once it has ended well: a line for the grid, and
  // perhaps further ones for its diagnosis; empty if its first notice says so.
  virtual QString trajo() const { return {}; }
  // What it left out although it ended well, as a line for the grid; empty for nothing.
  virtual QString reparo() const { return {}; }
  // Its present item, for the grid ("P 0000123"), and the last code for reports.
  virtual QString MostrarTraza() const { return {}; }
  virtual qint64 codigoActual() const { return 0; }
  // Counts finished items (articles, positions, machines whose list ended); a task that keeps
  // failing without moving it is given up, so every task ends.
  virtual qint64 avance() const = 0;
};

// A kind of task. One constant object in each file.
struct ClaseTarea {
  TipoTarea tarea = TipoTarea::TxHora;
  const char16_t* clave = u"";  // keyword of the process language, empty for none
  // Numbers of its texts: the grid's name, the name for messages, the title of its dialog.
  int nombre = -1, mensaje = -1, titulo = -1;
  std::vector<TipoGrupo> tipos;         // kinds of group that take it
  std::optional<TipoTotal> total = {};  // the kind of totals that it reads
  bool esLectura = false;               // totals and documents: a zeroing of the group waits for it
  bool esOlvido = false;                // zeroing, wipe: waits for earlier readings of its group
  bool esBorrado = false;               // wipe: later tasks of its group wait for it
  bool toleraErr5 = false;              // a refusal numbered 5 counts as a good answer
  // Null for a kind with a known name but no sender: NuevaTarea returns 2 for it.
  std::unique_ptr<CursoTarea> (*crear)(const DatosTarea&, const Entorno&) = nullptr;
  bool valePara(TipoGrupo tipo) const;
};

// The names, kinds of group and flags of all kinds of task, without senders.
std::vector<ClaseTarea> TablaClases();

// The kinds. Created in one place (comm/tareas/Repertorio) and passed to the engine.
class RepertorioTareas {
 public:
  // Adds a kind, or replaces the existing one.
  void anadir(ClaseTarea clase);
  const ClaseTarea* de(TipoTarea tarea) const;  // null for an unknown one
  const ClaseTarea* porClave(QStringView clave) const;
  const std::vector<ClaseTarea>& todas() const { return clases_; }

 private:
  std::vector<ClaseTarea> clases_;
};

}  // namespace tarvo::motor
