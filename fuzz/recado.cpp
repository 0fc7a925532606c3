// Messages from another program over the local socket.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "app/Recado.h"

using namespace tarvo::app;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t n) {
  const QByteArray linea(reinterpret_cast<const char*>(datos), static_cast<qsizetype>(n));
  static_cast<void>(esParar(linea));
  static_cast<void>(leerRespuesta(linea));
  const auto p = leerPeticion(linea);
  if (!p) return 0;
  const auto otra = leerPeticion(escribir(*p));
  if (!otra || *otra != *p) std::abort();
  return 0;
}
