// Sesion's state in memory, and the statements shared by its files.
#pragma once

#include <optional>
#include <set>

#include "totals/libros/Sesion.h"
#include "totals/libros/TablasLibros.h"

namespace tarvo::totals {

struct Sesion::Estado {
  // ESTADO of a row of Lecturas.
  enum Lectura : int { kNada = 0, kEnCurso = 1, kCompleta = 2, kFallida = 3, kNoCuadra = 4 };
  struct Foto {
    int abierta;
    Fecha hasta, aCero;
    qint64 de;
  };

  explicit Estado(dao::Database& base) : db(base), valores(base) {}
  Foto foto() const { return {abierta, hasta, aCero, de}; }
  void volver(const Foto& f) { abierta = f.abierta, hasta = f.hasta, aCero = f.aCero, de = f.de; }
  // A session left open by an earlier run: readings from here on end now.
  void renovar(Fecha ahora);

  // Notes the state of a reading, keeping what is known about earlier ones.
  Resultado<> anotarLectura(int grupo, TipoTotal clase, Lectura estado, Fecha ahora);

  dao::Database& db;
  EstadoBase valores;
  int abierta = 0;
  Fecha hasta, aCero;
  qint64 ejecucion = 0, de = 0;  // the current run, and the run that `hasta` belongs to
  bool reanuda = false, enProceso = false;
  std::set<int> leidosAhora;  // groups read since this process started the run
  // A reading, and where the group was when it began, see Accesos.h.
  struct Traida {
    totals::Lectura lectura;
    QString acceso;
  };
  // Readings of groups with an open question, until the session closes.
  std::map<int, std::map<TipoTotal, Traida>> retenidas;
  // Those refused, until they are noted as failed: the caller's transaction is taken back.
  std::map<std::pair<int, TipoTotal>, Traida> rechazadas;
  // What was found out about exchanged machines, until the session closes.
  std::vector<Aviso> porDecir;
  // Of the readings under way.
  std::map<std::pair<int, TipoTotal>, QString> accesos;
};

// Condition on a row of Lecturas: read since the machine at an address (a parameter) last confirmed
// that it forgot.
inline constexpr auto kTrasElCero =
    u"SEC>(SELECT COALESCE(MAX(SEC_HECHO), 0) FROM Ceros WHERE Ceros.GRUPO=Lecturas.GRUPO AND "
    u"ADDR=?)";

// The run that closed a session without memorising the group's sales, if nothing has been read
// whole since: they are in the machine alone. 0 for a person at a window.
Resultado<std::optional<qint64>> olvidadoSinMemorizar(dao::Database& db, int grupo);

// Adds the rows of a group's only machine from the inbox to a table of counters by machine.
Resultado<> copiarBandeja(dao::Database& db, QStringView tabla, int grupo, TipoTotal clase,
                          int addr);
// Keeps the memorised but not yet zeroed rows of a kind apart from the inbox, which is about to be
// refilled.
Resultado<> apartarBase(dao::Database& db, int grupo, TipoTotal clase);

}  // namespace tarvo::totals
