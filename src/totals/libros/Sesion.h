// The session around a round of reception, the inbox (rows of LINK 0), and the record of readings
// and zeroings machine by machine. Everything here that must agree with the rows is written in the
// rows' own transaction, in the database; TARVO.INI only mirrors it. Rules and reasons:
// docs/libros.md.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "core/dao/Database.h"
#include "core/textos/Textos.h"
#include "core/tiempo/Reloj.h"
#include "totals/libros/FilasLeidas.h"

namespace tarvo::totals {

// A task's reading of one kind, machine by machine. Rows of one address add up under one key only
// where the task says so.
struct Lectura {
  using Filas = FilasLeidas;
  using Clave = Filas::Clave;
  std::map<int, Filas>
      maquinas;        // by address; one entry, 0, where the group answers as one machine
  bool entera = true;  // the whole range of codes was asked for
};

// Something to report to the shop manager. `grave` makes the result of the run "problems".
struct Aviso {
  int grupo = 0;
  QString texto;
  bool grave = true;
};

// Why a group may not be told to forget; empty when it may.
struct PermisoCero {
  bool permitido = true;
  // The counters must first be shown to be those that were read: another process read them, or this
  // run resumes an interrupted one, so that the machine may have sold since.
  bool comprobar = false;
  // With `comprobar`: a machine of which nothing was read since it last forgot may be told all the
  // same.
  bool sinLectura = false;
  QString motivo;
  std::vector<Aviso> avisos = {};  // what was settled to decide this
};

struct AjustesSesion;

class Sesion {
 public:
  Sesion(dao::Database& db, Ajustes& ajustes, Reloj& reloj, const Textos& textos);
  ~Sesion();

  // 0 closed, 1 open and empty, 2 open with data.
  int estado() const;
  // Reads the state from the database; if it was never written there, the settings file's state
  // holds.
  Resultado<> cargar();
  // Changes the state, in the current transaction if there is one. reflejar() writes the settings
  // file.
  Resultado<> ponerEstado(int nuevo);
  // The name that the process under way will give to what it reads: whoever memorises it by hand,
  // if the process is stopped before, gives it the same. Kept with the session that the process
  // opens, until that closes; empty if there is none.
  Resultado<> ponerNombre(const QString& nombre);
  Resultado<QString> nombre();
  // AbrirSesion: from 0 to 1, all SS_ flags false. False when the session is already open.
  Resultado<bool> AbrirSesion();
  // Records that a memorisation gave up: groups with readings waiting in the inbox are not zeroed
  // until they are memorised.
  Resultado<> anotarCierreFallido();
  // Records, in the current transaction, the groups with sales in the open session that are in no
  // period: the session is about to be closed without them.
  Resultado<> anotarOlvido();
  // Closes the session in a transaction of its own, with that record if it holds sales.
  Resultado<> cerrarSinMemorizar();
  // The amount of the group's sales in the inbox that are in no period, in minor units of the
  // stored money, from the kind that knows most: of the open session, of one that was closed
  // without them, or of a reading that waits for an answer. Nothing if there are none.
  Resultado<std::optional<qint64>> sinPeriodo(int grupo);
  // The groups with sales of the open session in no period and no longer in their machines, which
  // were told to forget after the reading.
  Resultado<std::vector<int>> soloEnBandeja();
  // Copies the state into the settings and saves them. A failure is an Aviso, never a loss.
  Resultado<> reflejar();

  // The number of the current run, recorded with readings and failures. Set by the runner.
  // `reanuda`: this run resumes an interrupted one.
  void ponerEjecucion(qint64 numero, bool reanuda);
  qint64 ejecucion() const;
  // A process is under way, with nobody who looks at what it zeroes: a group may only forget once
  // its sales by article are known to be complete.
  void ponerEnProceso(bool si);

  // --- receiving
  Resultado<bool> PuedeRecibir(int grupo, TipoTotal clase);
  // Whether the group's machines may still hold counters that are in a period: their next reading
  // is compared with them.
  Resultado<bool> conBase(int grupo);
  // Notes on disk that a reading of this kind is under way. The inbox keeps what it held.
  Resultado<> PrepararRecepcion(int grupo, TipoTotal clase);
  // One transaction: the rows of LINK 0 of the group and kind become these, DD_ and HT_ are set, a
  // session opens if none was open, SS_ is marked, the reading is complete. A range of codes joins
  // an earlier one of the session. Nothing changes when it
  // fails. `avisos` receives what a person must know about the comparison with an earlier reading.
  Resultado<> guardarLectura(int grupo, TipoTotal clase, const Lectura& leida,
                             std::vector<Aviso>& avisos);
  // What was read of a group with an open question is only kept in memory until the session closes:
  // in the current transaction it then replaces the reading that waits, if all its kinds were read
  // again and none is lower.
  Resultado<> soltarRetenidas(std::vector<Aviso>& avisos);
  void olvidarRetenidas();
  // What was found out about exchanged machines before the session closes, once.
  std::vector<Aviso> porDecir();
  // The reading was given up; the group is not zeroed until it is read whole.
  Resultado<> lecturaFallida(int grupo, TipoTotal clase);

  // --- zeroing
  Resultado<PermisoCero> permisoCero(int grupo);
  // On disk before the frame is sent: this machine is about to be told to forget. For a machine
  // that forgets in several frames, each is announced by its number, from 1.
  Resultado<> anunciarCero(int grupo, int addr, int conjunto = 0);
  // One of several frames was confirmed; more frames for the machine are to follow.
  Resultado<> parteHecha(int grupo, int addr, int conjunto);
  // What this run has told a machine since its group was last read: the next frame, and whether any
  // was announced.
  struct Partes {
    int siguiente = 1;
    bool empezada = false;
  };
  Resultado<Partes> partesHechas(int grupo, int addr);
  // The machine at this address has confirmed. When `ultima`, the group's PZERO is written as well
  // (MarcarSesion 6). What wasn't seen to be gone is kept until its next reading shows it.
  enum class Visto : int { Nada, GranTotal, Todo };
  Resultado<> ceroHecho(int grupo, int addr, bool ultima, Visto visto = Visto::Nada);
  // The machine at this address has confirmed, but was seen to hold sales of this kind afterwards;
  // `igual`: to the unit those read before. Its next reading shows what it forgot.
  Resultado<> ceroDesmentido(int grupo, int addr, TipoTotal clase, bool igual);
  // The addresses of the group whose zeroing was already confirmed in this run.
  Resultado<bool> ceroYaHecho(int grupo, int addr);
  // Compares a grand total just read with that machine's readings since it last forgot. Igual:
  // nothing was sold since, zero it. Cero: it has forgotten already. Mas: it may hold unmemorised
  // sales. OtrasClases: only other kinds were read. SinLectura: nothing was.
  enum class Comparacion { Igual, Cero, Mas, OtrasClases, SinLectura };
  Resultado<Comparacion> compararGranTotal(int grupo, int addr, const Contadores& leido);
  // The same for the sum of the machine's articles just read. `articulosLeidos`: those read whole
  // before, with which they are compared; nothing without any sales.
  Resultado<std::optional<Contadores>> articulosLeidos(int grupo, int addr);
  static Comparacion compararArticulos(const Contadores& antes, const Contadores& leido);

  dao::Database& base() { return db_; }
  const Ajustes& ajustes() const { return ajustes_; }
  const Textos& textos() const { return textos_; }

 private:
  struct Estado;
  Resultado<> escribirLectura(int grupo, TipoTotal clase, const Lectura& lectura,
                              const QString& acceso);
  Resultado<> devolverNota(int grupo, TipoTotal clase);
  Resultado<> cerrarSiHaVuelto(int grupo, const QString& acceso);
  dao::Database& db_;
  Ajustes& ajustes_;
  AjustesSesion& reflejo_;
  Reloj& reloj_;
  const Textos& textos_;
  std::unique_ptr<Estado> d;
};

}  // namespace tarvo::totals
