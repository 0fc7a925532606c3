// What a person types or pastes to be explored.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "comm/exploracion/Accesos.h"

using namespace tarvo::exploracion;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t n) {
  const auto leidos =
      leerTexto(QString::fromUtf8(reinterpret_cast<const char*>(datos), static_cast<qsizetype>(n)));
  if (leidos.accesos.size() > kMaxAccesos) std::abort();
  for (const Acceso& a : leidos.accesos)
    if (const auto otra = leerAccesos({a.nombre}); !otra || claveDe(otra->front()) != claveDe(a))
      std::abort();
  return 0;
}
