// A consistent copy of a database file that may be in use.
#pragma once

#include <QString>

#include "core/valores/Resultado.h"

namespace tarvo::dao {

// Copies the committed contents of `origen` to a file beside `destino`, flushes it and renames it:
// `destino` is the old file or the new one, never half of it. The copy is one plain file.
Resultado<> copiarBase(const QString& origen, const QString& destino);

}  // namespace tarvo::dao
