// Whether what is exported in the short layout can be read back by this shop. Internal to the room;
// the layouts are described in docs/formatos.md.
#pragma once

#include <set>

#include "core/dao/Database.h"
#include "totals/intercambio/Exportado.h"

namespace tarvo::totals {

Resultado<Secciones> leerSecciones(dao::Database& db);
// The groups with rows of the period that, written in the short layout, would be refused, or would
// be read as other rows.
Resultado<std::set<qint64>> ilegiblesEnCorto(dao::Database& db, const Ajustes& ajustes,
                                             qint64 link);

}  // namespace tarvo::totals
