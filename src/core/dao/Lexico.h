// Cuts a statement of the Jet dialect into its elements.
#pragma once

#include <QString>
#include <QStringView>
#include <vector>

#include "core/valores/Resultado.h"

namespace tarvo::dao {

struct Elemento {
  enum class Clase { Palabra, Nombre, Cadena, Numero, Fecha, Signo, Parametro };
  Clase clase;
  QString texto;   // a name without its brackets, a text without its quotes, else as written
  QString minusc;  // a word in lower case, a sign as written; empty for the rest
};

// Comments ("--" up to the end of the line) are left out. Formato for a character that begins no
// element and for an unterminated text, name or date.
Resultado<std::vector<Elemento>> cortar(QStringView sql);

}  // namespace tarvo::dao
