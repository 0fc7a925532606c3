// Machines of which nobody can tell whether they forgot what is memorised of them. Their group
// stays out of the memorisation, with its reading kept in the inbox, until a person says which it
// was.
#pragma once

#include <optional>
#include <set>

#include "totals/libros/Testigos.h"

namespace tarvo::totals {

struct DudaAbierta {
  int grupo = 0, addr = 0;  // 0: the one machine of the group
  QString nombre = {};      // of the group
  Fecha desde = {};         // when it was read last for the books
  // What it would have sold since, in stored money: if it was zeroed, and if it wasn't.
  qint64 siOlvido = 0, siNo = 0;
};
// In the order of groups and machines.
Resultado<std::vector<DudaAbierta>> dudasAbiertas(dao::Database& db);

// Inside the caller's transaction, as all that follows. The group leaves the open session, and
// isn't zeroed: its next whole reading holds all that this one does.
Resultado<> dejarFuera(dao::Database& db, const Ajustes& ajustes, int grupo);
// The same for the doubt about these machines. Says what each would have sold either way.
Resultado<> abrirDudas(dao::Database& db, const Ajustes& ajustes, const Textos& textos, int grupo,
                       const std::map<int, Testimonios>& maquinas, std::vector<Aviso>& avisos);
// What a person said of the machine: true, it forgot. Nothing when nobody has.
Resultado<std::optional<bool>> respuestaDe(dao::Database& db, int grupo, int addr);
Resultado<> cerrarDudas(dao::Database& db, int grupo);
// Of groups of which nothing is memorised any more that their machines hold.
Resultado<> cerrarDudasSinBase(dao::Database& db);
Resultado<bool> hayDudas(dao::Database& db, int grupo);

// A person's answer for one machine of the group. When none of the group is left in doubt its
// reading comes back into the session. False while others wait. NoExiste when nobody asked.
Resultado<bool> anotarRespuesta(dao::Database& db, const Textos& textos, DudaAbierta cual,
                                bool olvido);

}  // namespace tarvo::totals
