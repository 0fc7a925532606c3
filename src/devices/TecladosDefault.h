// The default keyboard of a new machine of a model, in the layout of the language. Texts of lines
// ended by CR LF; their layouts: docs/formatos.md.
#pragma once

#include <QString>

#include "core/ajustes/Ajustes.h"

namespace tarvo::devices {

// "kkk:ccc", one line for each key; empty for an unknown model.
QString TecladoDefecto(int modelo, Idioma idioma);
QString HardPluDefecto();
QString TarasDefecto();

// The code of one cell of a layout table: "PLUnn", "OPEnn" or a number. An empty cell is 0.
int codigoDeCelda(QStringView celda);

}  // namespace tarvo::devices
