// Translates a statement of the Jet dialect into standard SQL as the engine reads it. The dialect:
// docs/formatos.md.
//
// A statement that creates a view uses built-in functions only, so that the view works in any
// program. Others may also use what the connection adds: the function `tarvo_ucase` and
// `tarvo_lcase` (case of all letters), the collation `tarvo_orden` (names as Spanish readers sort
// them), and a LIKE with Jet's patterns.
#pragma once

#include <QString>
#include <QStringView>
#include <functional>
#include <vector>

#include "core/valores/Resultado.h"

namespace tarvo::dao {

// Whether a column of that name (lower case) holds text in any table: such columns sort as names.
using EsColumnaDeTexto = std::function<bool(const QString&)>;

// Formato, naming the word, if there is no translation.
Resultado<QString> traducirJet(QStringView sql, const EsColumnaDeTexto& esTexto = {});

// The statements of a script, separated by ";" at the end of a line (a trigger contains some inside
// a line).
std::vector<QString> partirGuion(QStringView guion);

}  // namespace tarvo::dao
