// Shared by both ways of settling memorised counters: by whole machines, and kind by kind.
#pragma once

#include <set>

#include "totals/libros/SesionInterior.h"
#include "totals/libros/Testigos.h"

namespace tarvo::totals {

// Reports the machines that have forgotten, and updates the books accordingly.
Resultado<> darPorOlvidadas(dao::Database& db, const Ajustes& ajustes, int grupo,
                            const std::set<int>& addrs, const Textos& textos,
                            std::vector<Aviso>& avisos);

// The same for a register that has left, without a report. Where it was the last with memorised
// counters, the others count since they were told to forget.
Resultado<> quitarDeLasBases(dao::Database& db, const Ajustes& ajustes, int grupo, int addr);

// Registers of the group that were cleared by hand in some kinds only, as their sums show: from now
// on they are half done, for resolverPartes (Si). One without sales since may also have told a list
// that was cut short: the group stays out until it has sold (TalVez).
enum class EnParte : int { No, Si, TalVez };
Resultado<EnParte> anotarBorradasEnParte(dao::Database& db, const Textos& textos, int grupo,
                                         const std::vector<Releida>& lista,
                                         std::vector<Aviso>& avisos);

}  // namespace tarvo::totals
