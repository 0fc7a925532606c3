// Fields in words.
#pragma once

#include "core/textos/Textos.h"
#include "labels/Muestra.h"

namespace tarvo::labels {

// Its type; of a text line with its text, of a header line with its number.
QString nombreDeCampo(const Textos& t, const CampoEtiqueta& campo, const LectorTextos& textos);
// A sentence.
QString decirTropiezo(const Textos& t, const Formato& formato, const Tropiezo& tropiezo,
                      const LectorTextos& textos);

}  // namespace tarvo::labels
