// What both ways of settling memorised counters share: by whole machines, and by their sets of
// counters.
#pragma once

#include <set>

#include "totals/libros/SesionInterior.h"

namespace tarvo::totals {

// A reading of the open session whose machine held memorised sales when it was read. Where those
// didn't foot they may be too many, and a lower count proves nothing: such a group was not zeroed
// by us.
struct Releida {
  int grupo = 0;
  const ClaseTotal* clase = nullptr;
  bool varias = false, entera = true;
  qint64 addr = 0, sec = 0;
};

Resultado<std::vector<Releida>> releidas(dao::Database& db, const Ajustes& ajustes);
// The addresses of the group of which a count went down in this kind.
Resultado<std::set<int>> bajaron(dao::Database& db, const Releida& r);
// What is said and done of the machines that have forgotten.
Resultado<> darPorOlvidadas(dao::Database& db, const Ajustes& ajustes, int grupo,
                            const std::set<int>& addrs, const Textos& textos,
                            std::vector<Aviso>& avisos);
// The group stays out of this memorisation, and isn't zeroed: its next whole reading holds all that
// this one does.
Resultado<> dejarFuera(dao::Database& db, const Ajustes& ajustes, int grupo);

}  // namespace tarvo::totals
