// Memorising the inbox: what arrived becomes periods, in one transaction that moves rows, marks and
// the session. When it gives up, everything stays as it was, the session too. Rules:
// docs/libros.md.
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

// What memorising would bring, and of whom nothing would be in it.
struct EnBandeja {
  qint64 importe = 0;       // minor units of stored money, without what is memorised already
  std::vector<int> faltan;  // groups that communicate, by number
};

class CerrSes {
 public:
  CerrSes(Sesion& sesion, Periodos& periodos);

  // Set before LaSesion; true, true and empty at first.
  bool TodoAUno = true, OverWr = true;
  QString Descrip;  // patterns already expanded

  // The lists of what was received and of the periods that it makes. Settles first, in the
  // database, what the readings show of zeroings that nobody wrote down.
  Resultado<> AnalizarScratch(std::vector<Aviso>& avisos);
  const std::vector<Recibido>& recibidos() const { return recibidos_; }
  const std::vector<Propuesto>& propuestos() const { return propuestos_; }
  // Of what AnalizarScratch found.
  Resultado<EnBandeja> enBandeja() const;
  int elegido() const { return elegido_; }  // index of the dominant period, -1 for none
  // Takes another of the proposed periods in place of the dominant one; it holds as long as what
  // was received still makes it.
  void elegir(int indice);
  // Opens again a session that was closed without memorising. False when nothing of it is left or
  // another one has begun.
  Resultado<bool> recuperar();
  // Machines of which a person must say whether they were zeroed.
  Resultado<std::vector<DudaAbierta>> dudas();
  // A person says of a machine that was left out in doubt (Dudas.h) whether it forgot. When nothing
  // of its group is in doubt any more its reading is memorised, unless a session is open, which
  // then holds it. The links as of LaSesion.
  Resultado<std::vector<qint64>> responder(int grupo, int addr, bool olvido,
                                           std::vector<Aviso>& avisos);

  // Moves the session to `nuevo`, memorising first when asked. The links of the periods made; empty
  // when nothing was memorised. The avisos hold what a manager must know, the cross-footing
  // included. The settings file is the caller's to mirror (Sesion::reflejar) once its own
  // transaction, if it has one, has ended well; when it rolls back it calls cargar().
  Resultado<std::vector<qint64>> LaSesion(bool memorizar, int nuevo, std::vector<Aviso>& avisos);

 private:
  Sesion& s_;
  Periodos& p_;
  std::vector<Recibido> recibidos_;
  std::vector<Propuesto> propuestos_;
  int elegido_ = -1;
  std::optional<Periodo> preferido_;

  Resultado<std::vector<qint64>> memorizar(std::vector<Aviso>& avisos);
};

}  // namespace tarvo::totals
