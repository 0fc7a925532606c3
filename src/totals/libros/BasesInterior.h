// Shared by both ways of settling memorised counters: by whole machines, and kind by kind.
#pragma once

#include <set>

#include "totals/libros/SesionInterior.h"

namespace tarvo::totals {

// Reports the machines that have forgotten, and updates the books accordingly.
Resultado<> darPorOlvidadas(dao::Database& db, const Ajustes& ajustes, int grupo,
                            const std::set<int>& addrs, const Textos& textos,
                            std::vector<Aviso>& avisos);

}  // namespace tarvo::totals
