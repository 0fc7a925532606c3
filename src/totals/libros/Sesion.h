// The session that frames a round of reception, the inbox (rows of LINK 0), and the record of what
// each machine was read and told. Everything here that must agree with the rows is written in the
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

// What a task read of one kind, machine by machine. Rows of one address add up under one key only
// as the task says.
struct Lectura {
  using Filas = FilasLeidas;
  using Clave = Filas::Clave;
  std::map<int, Filas>
      maquinas;        // by address; one entry, 0, where the group answers as one machine
  bool entera = true;  // the whole range of codes was asked for
};

// Something a shop manager must be told. `grave` makes the result of the run "problems".
struct Aviso {
  int grupo = 0;
  QString texto;
  bool grave = true;
};

// Why a group may not be told to forget; empty when it may.
struct PermisoCero {
  bool permitido = true;
  // The counters must first be shown to be those that were memorised: this run goes on from one
  // that was cut off, so the machine may have sold since it was read.
  bool comprobar = false;
  QString motivo;
  std::vector<Aviso> avisos = {};  // what was settled to answer this
};

struct AjustesSesion;

class Sesion {
 public:
  Sesion(dao::Database& db, Ajustes& ajustes, Reloj& reloj, const Textos& textos);
  ~Sesion();

  // 0 closed, 1 open and empty, 2 open with data.
  int estado() const;
  // Reads the state from the database; where it was never written there, the settings file's holds.
  Resultado<> cargar();
  // Moves the state, in the present transaction when there is one. The settings file is written by
  // mirror().
  Resultado<> ponerEstado(int nuevo);
  // AbrirSesion: from 0 to 1, all SS_ flags false. False when the session is already open.
  Resultado<bool> AbrirSesion();
  // A memorisation gave up: the groups whose readings wait in the inbox are not zeroed until they
  // are memorised.
  Resultado<> anotarCierreFallido();
  // Copies the state into the settings and saves them. A failure is an Aviso, never a loss.
  Resultado<> reflejar();

  // The number of the present run; readings and failures bear it. Set by the runner. `reanuda`:
  // this run goes on from one that was cut off.
  void ponerEjecucion(qint64 numero, bool reanuda);
  qint64 ejecucion() const;

  // --- receiving
  // ----------------------------------------------------------------------------------
  Resultado<bool> PuedeRecibir(int grupo, int clase);
  // Notes on disk that a reading of this kind is under way. The inbox keeps what it held.
  Resultado<> PrepararRecepcion(int grupo, int clase);
  // One transaction: the rows of LINK 0 of the group and kind become these, DD_ and HT_ are set, a
  // session opens if none was open, SS_ is marked, the reading is complete. Nothing changes when it
  // fails. What a person must know of the comparison with an earlier reading goes to `avisos`.
  Resultado<> guardarLectura(int grupo, int clase, const Lectura& lectura,
                             std::vector<Aviso>& avisos);
  // The reading was given up; the group is not zeroed until it is read whole.
  Resultado<> lecturaFallida(int grupo, int clase);

  // --- zeroing
  // ------------------------------------------------------------------------------------
  Resultado<PermisoCero> permisoCero(int grupo);
  // On disk before the frame goes: this machine is about to be told to forget. A machine that
  // forgets in several frames is announced before each, by its number, from 1.
  Resultado<> anunciarCero(int grupo, int addr, int conjunto = 0);
  // One of several frames was confirmed, others of the machine are yet to follow.
  Resultado<> parteHecha(int grupo, int addr, int conjunto);
  // What this run has told a machine since its group was last read: the frame that comes next, and
  // whether any was announced.
  struct Partes {
    int siguiente = 1;
    bool empezada = false;
  };
  Resultado<Partes> partesHechas(int grupo, int addr);
  // The machine of this address has confirmed. When `ultima`, the group's PZERO is written too
  // (MarcarSesion 6).
  Resultado<> ceroHecho(int grupo, int addr, bool ultima);
  // The addresses of the group whose zeroing was confirmed in this run already.
  Resultado<bool> ceroYaHecho(int grupo, int addr);
  // Compares a grand total just read with what was read of that machine since it last forgot.
  // Igual: nothing was sold since, zero it. Cero: it has forgotten already. Mas: it may hold
  // something not memorised. OtrasClases: only other kinds were read. SinLectura: nothing was.
  enum class Comparacion { Igual, Cero, Mas, OtrasClases, SinLectura };
  Resultado<Comparacion> compararGranTotal(int grupo, int addr, const Contadores& leido);

  dao::Database& base() { return db_; }
  const Ajustes& ajustes() const { return ajustes_; }
  const Textos& textos() const { return textos_; }

 private:
  struct Estado;
  dao::Database& db_;
  Ajustes& ajustes_;
  AjustesSesion& reflejo_;
  Reloj& reloj_;
  const Textos& textos_;
  std::unique_ptr<Estado> d;
};

}  // namespace tarvo::totals
