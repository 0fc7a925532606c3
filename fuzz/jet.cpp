// The translator of the Jet dialect over any text: it returns SQL, which can be cut into elements
// again, or an error with a sentence.
#include <cstdint>
#include <cstdlib>

#include "core/dao/Dialecto.h"
#include "core/dao/Lexico.h"
#include "core/dao/Orden.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t tamano) {
  using namespace tarvo::dao;
  const QString texto =
      QString::fromUtf8(reinterpret_cast<const char*>(datos), static_cast<qsizetype>(tamano));
  const auto esTexto = [](const QString& c) { return c.startsWith(u'n'); };
  if (const auto t = traducirJet(texto, esTexto); !t) {
    if (t.error().texto.isEmpty()) std::abort();
  }
  partirGuion(texto);
  const QByteArray clave = claveOrden(texto).toUtf8();
  if (compararOrden(texto.toUtf8(), texto.toUtf8()) != 0 || clave.size() < texto.size())
    std::abort();
  casaPatron(texto.left(40), texto.mid(40));
  return 0;
}
