// The Spanish table, for engines in tests, benchmarks and fuzzers.
#pragma once

#include "core/textos/Textos.h"

namespace tarvo {

inline const Textos& textosDePrueba() {
  static const Textos textos = Textos::leer(QStringLiteral(TARVO_DATOS "/textos/es.txt")).value();
  return textos;
}

}  // namespace tarvo
