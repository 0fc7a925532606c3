// What both ways of settling memorised counters share: by whole machines, and kind by kind.
#pragma once

#include <set>

#include "totals/libros/SesionInterior.h"

namespace tarvo::totals {

// What is said and done of the machines that have forgotten.
Resultado<> darPorOlvidadas(dao::Database& db, const Ajustes& ajustes, int grupo,
                            const std::set<int>& addrs, const Textos& textos,
                            std::vector<Aviso>& avisos);

}  // namespace tarvo::totals
