// Translates the engine's result codes for the rest of the program.
#pragma once

#include <QString>

#include "core/valores/Resultado.h"

struct sqlite3;

namespace tarvo::dao {

// The connection's error after a call returned `codigo`. `que` names the file or the statement.
Error errorDe(sqlite3* db, int codigo, const QString& que);

}  // namespace tarvo::dao
