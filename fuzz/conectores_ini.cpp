// Any bytes as CONECTORES.INI; the first line is the name to look for.
#include <cstdint>

#include "comm/cables/Conectores.h"
#include "core/ajustes/Ficheros.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t tamano) {
  using namespace tarvo;
  const QByteArray bytes(reinterpret_cast<const char*>(datos), static_cast<qsizetype>(tamano));
  const QString texto = ficheros::descodificar(bytes);
  enlace::buscarConector(texto, texto.section(u'\n', 0, 0));
  return 0;
}
