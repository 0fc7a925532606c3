// The letters that each family of machines has.
#pragma once

#include <QByteArray>
#include <QString>

#include "core/valores/Tipos.h"

namespace tarvo::maquinas {

// A text as a kind of machine takes it.
struct Escrito {
  QByteArray bytes;
  QString cambiadas;  // the characters that the machine lacks, each once, in their order
};

// At most `ancho` bytes of it. A character that the machine lacks goes as the one that is most like
// it (its base letter, a plain quotation mark, a dash, a blank), "?" where there is none; one that
// nobody sees goes as a blank or not at all, and isn't among `cambiadas`. `conLineas`: a CR stays.
// Kinds 1 and 2 have seven bits, 3 and 4 Windows-1252.
Escrito escribirLetras(TipoGrupo tipo, const QString& texto, qsizetype ancho,
                       bool conLineas = false);

}  // namespace tarvo::maquinas
