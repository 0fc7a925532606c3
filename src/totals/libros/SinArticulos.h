// What is missing from a period, group by group: totals by article, without which no other kind
// tells what was sold of each; a grand total to compare them with; or everything.
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

// Of a period with rows: the groups that communicate and have none in it, and those without a grand
// total, which nothing was compared with. A sentence for each; empty if there are none.
Resultado<QString> decirAusentes(const Periodos& periodos, qint64 link);

}  // namespace tarvo::totals
