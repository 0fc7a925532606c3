// The letters that each family of machines has.
#pragma once

#include <QByteArray>
#include <QString>

#include "core/valores/Tipos.h"

namespace tarvo::maquinas {

// A text as accepted by a kind of machine.
struct Escrito {
  QByteArray bytes;
  QString cambiadas;  // the characters that the machine lacks, each once, in order
};

// At most `ancho` bytes of it. A character that the machine lacks is replaced by the most similar
// one (its base letter, a plain quotation mark, a dash, a blank), or by "?" if there is none; an
// invisible one becomes a blank or is dropped, and isn't among `cambiadas`. `conLineas`: a CR
// stays. Kinds 1 and 2 have seven bits, 3 and 4 Windows-1252.
Escrito escribirLetras(TipoGrupo tipo, const QString& texto, qsizetype ancho,
                       bool conLineas = false);

}  // namespace tarvo::maquinas
