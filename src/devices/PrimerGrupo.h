// The group that an empty database begins with.
#pragma once

#include <functional>

#include "core/ajustes/Ajustes.h"
#include "core/dao/Database.h"

namespace tarvo::devices {

// The lowest code that nothing is stored under.
using CodigoLibre = std::function<Resultado<int>(dao::Database&)>;

// Creates a group "GRUPO" in section 1 and the first warehouse, with one Cedar scale under number
// 0. Its code is 1, unless rows of lost groups would pass to it. Runs at every start and does
// nothing if there is a group.
Resultado<> asegurarPrimerGrupo(dao::Database& db, const Ajustes& ajustes,
                                const CodigoLibre& codigoLibre);

class Grupo;
// Whether a group is still the one created so: its name, its machine, and no access.
bool esPrimerGrupo(const Grupo& grupo, const QString& nombre, Idioma idioma);

}  // namespace tarvo::devices
