// Turns a statement of the Jet dialect into one of standard SQL as the engine reads it.
// docs/formatos.md says what the dialect has.
//
// A statement that makes a view comes out in built-in functions only, so that the view works in any
// program. Any other may use what the connection knows besides: the function `tarvo_ucase` and
// `tarvo_lcase` (case of all letters), the collation `tarvo_orden` (names as Spanish readers sort
// them), and a LIKE with Jet's patterns.
#pragma once

#include <QString>
#include <QStringView>
#include <functional>
#include <vector>

#include "core/valores/Resultado.h"

namespace tarvo::dao {

// Whether a column of that name (lower case) holds text somewhere in the database: such columns
// sort by name.
using EsColumnaDeTexto = std::function<bool(const QString&)>;

// Formato, with the word, for what has no translation.
Resultado<QString> traducirJet(QStringView sql, const EsColumnaDeTexto& esTexto = {});

// The statements of a script, parted by ";" at the end of a line (a trigger holds some inside a
// line).
std::vector<QString> partirGuion(QStringView guion);

}  // namespace tarvo::dao
