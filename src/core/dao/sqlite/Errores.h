// What a result code of the engine means for the rest of the program.
#pragma once

#include <QString>

#include "core/valores/Resultado.h"

struct sqlite3;

namespace tarvo::dao {

// The error that the connection holds after a call answered `codigo`. `que` names the file or the
// statement.
Error errorDe(sqlite3* db, int codigo, const QString& que);

}  // namespace tarvo::dao
