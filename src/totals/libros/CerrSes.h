// Memorising the inbox: the received totals become periods, in one transaction that moves rows,
// marks and the session. When it gives up, everything stays as it was, including the session.
// Rules: docs/libros.md.
#pragma once

#include <optional>
#include <vector>

#include "totals/libros/Dudas.h"
#include "totals/libros/Memoria.h"
#include "totals/libros/Sesion.h"
#include "totals/periodos/Periodos.h"

namespace tarvo::totals {

struct Propuesto {
  Periodo periodo;
  int cuenta = 0;
};

// What memorising would bring, and the groups missing from it.
struct EnBandeja {
  qint64 importe = 0;       // minor units of stored money, without what is already memorised
  std::vector<int> faltan;  // groups that communicate, by number
};

class CerrSes {
 public:
  CerrSes(Sesion& sesion, Periodos& periodos);

  // Set before LaSesion; initially true, true and empty.
  bool TodoAUno = true, OverWr = true;
  QString Descrip;  // patterns already expanded

  // Lists what was received and the periods it makes. First settles, in the database, the
  // unrecorded zeroings that the readings show.
  Resultado<> AnalizarScratch(std::vector<Aviso>& avisos);
  const std::vector<Recibido>& recibidos() const { return recibidos_; }
  const std::vector<Propuesto>& propuestos() const { return propuestos_; }
  // The same for what AnalizarScratch found.
  Resultado<EnBandeja> enBandeja() const;
  int elegido() const { return elegido_; }  // index of the dominant period, -1 for none
  // Sets Descrip from a pattern.
  void describir(const QString& patron, Fecha ahora);
  // Takes another of the proposed periods in place of the dominant one; the choice holds as long as
  // the received totals still make that period.
  void elegir(int indice);
  // Reopens a session that was closed without memorising. False when nothing of it is left or
  // another one has begun.
  Resultado<bool> recuperar();
  // Machines about which a person must answer whether they were zeroed.
  Resultado<std::vector<DudaAbierta>> dudas();
  // Takes a person's answer on whether a doubtful machine (Dudas.h) forgot. Once no machine of its
  // group is in doubt, its reading is memorised, unless a session is open, which then holds it. The
  // links as for LaSesion.
  Resultado<std::vector<qint64>> responder(int grupo, int addr, bool olvido,
                                           std::vector<Aviso>& avisos);

  // Moves the session to `nuevo`, memorising first when asked. Returns the links of the periods
  // made; empty when nothing was memorised. The avisos hold what a manager must know, including the
  // cross-footing. The caller mirrors the settings file (Sesion::reflejar) once its own
  // transaction, if any, has been committed; when it rolls back it calls cargar().
  Resultado<std::vector<qint64>> LaSesion(bool memorizar, int nuevo, std::vector<Aviso>& avisos);

 private:
  Sesion& s_;
  Periodos& p_;
  std::vector<Recibido> recibidos_;
  std::vector<Propuesto> propuestos_;
  int elegido_ = -1;
  std::optional<Periodo> preferido_;
  std::optional<int> contestado_;  // the group whose doubt a person is settling

  Resultado<std::vector<qint64>> memorizar(std::vector<Aviso>& avisos);
};

}  // namespace tarvo::totals
