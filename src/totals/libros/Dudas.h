// Machines that may or may not have forgotten their memorised counters. Their group stays out of
// the memorisation, with its reading kept in the inbox, until a person decides.
#pragma once

#include <optional>
#include <set>

#include "totals/libros/Testigos.h"

namespace tarvo::totals {

struct DudaAbierta {
  int grupo = 0, addr = 0;  // 0: the only machine of the group
  QString nombre = {};      // of the group
  Fecha desde = {};         // when it was last read for the books
  // Its sales since then, in stored money: if it was zeroed, and if it wasn't.
  qint64 siOlvido = 0, siNo = 0;
};
// Ordered by group and machine.
Resultado<std::vector<DudaAbierta>> dudasAbiertas(dao::Database& db);

// Inside the caller's transaction, like all that follows. The group leaves the open session, and
// isn't zeroed: its next whole reading holds everything in this one.
Resultado<> dejarFuera(dao::Database& db, const Ajustes& ajustes, int grupo);
// The same for a doubt about these machines. Reports what each would have sold either way.
Resultado<> abrirDudas(dao::Database& db, const Ajustes& ajustes, const Textos& textos, int grupo,
                       const std::map<int, Testimonios>& maquinas, std::vector<Aviso>& avisos);
// A person's answer about the machine: true if it forgot. Nothing while unanswered.
Resultado<std::optional<bool>> respuestaDe(dao::Database& db, int grupo, int addr);
// The question about the machine waits for its answer.
Resultado<bool> preguntada(dao::Database& db, int grupo, int addr);
// A question about the group asks whether its machines are those of another one (Canjes.h).
Resultado<bool> dudaDeMaquinas(dao::Database& db, int grupo);
Resultado<> cerrarDudas(dao::Database& db, int grupo);
Resultado<> cerrarDuda(dao::Database& db, int grupo, int addr);
// For groups whose machines hold nothing memorised, nor anything that they may only have confirmed
// to have forgotten.
Resultado<> cerrarDudasSinBase(dao::Database& db);
Resultado<bool> hayDudas(dao::Database& db, int grupo);
// The kinds read of the group that wait in the inbox for the answer to a question about it.
Resultado<std::set<TipoTotal>> clasesEnDuda(dao::Database& db, int grupo);

// Records a person's answer for one machine of the group. When none of the group is left in doubt,
// its reading returns to the session. False while others wait. NoExiste when there was no such
// question.
Resultado<bool> anotarRespuesta(dao::Database& db, const Textos& textos, DudaAbierta cual,
                                bool olvido);

}  // namespace tarvo::totals
