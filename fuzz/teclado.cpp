// A keyboard from the clipboard, a file or the database, and the text of an Ebony machine.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "devices/Teclado.h"

using namespace tarvo::devices;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t n) {
  const QString texto =
      QString::fromUtf8(reinterpret_cast<const char*>(datos), static_cast<qsizetype>(n));
  for (const int teclas : {66, 84, 125}) {
    Teclado t(teclas), otro(teclas);
    static_cast<void>(t.quePega(texto));
    t.pegar(texto);
    t.leer({texto, texto, texto});
    otro.pegar(t.portapapeles());
    if (otro.escribir() != t.escribir()) std::abort();
  }
  TecladoEbony ebony(28), vuelve(28);
  ebony.leer(texto);
  vuelve.leer(ebony.escribir());
  if (vuelve.escribir() != ebony.escribir()) std::abort();
  return 0;
}
