// The groups that gave totals but none by article: no other kind tells what was sold of each.
#pragma once

#include <span>

#include "totals/libros/Sesion.h"
#include "totals/periodos/Periodos.h"

namespace tarvo::totals {

// Those of a period, by number: all of them, or `grupo` alone.
Resultado<std::vector<int>> gruposSinArticulos(dao::Database& db, const Ajustes& ajustes,
                                               qint64 link, std::optional<int> grupo = {});
// Whether that is so of what was read of the group since it last forgot.
Resultado<bool> leidoSinArticulos(dao::Database& db, const Ajustes& ajustes, int grupo);

// One sentence that names the groups; empty if there are none.
Resultado<QString> decirSinArticulos(dao::Database& db, const Textos& textos,
                                     std::span<const int> grupos);
// The same of a period, and of those among `grupos` that were read without articles.
Resultado<QString> decirSinArticulos(const Periodos& periodos, qint64 link);
Resultado<QString> decirSinArticulos(Sesion& sesion, std::span<const int> grupos);

}  // namespace tarvo::totals
