// Frames from outside: the first byte selects the reader and how the rest is cut into pieces. The
// builder must reproduce every good frame exactly, and no reader may hoard or invent bytes.
#include <cstdint>
#include <cstdlib>

#include "comm/tramas/Trama.h"

using namespace tarvo::tramas;

namespace {

void exigir(bool condicion) {
  if (!condicion) std::abort();
}

void leerTodoVEK(QByteArray& buffer, bool ancha) {
  for (qsizetype antes = -1; antes != buffer.size();) {
    antes = buffer.size();
    const LecturaVEK lectura = leerVEK(buffer, ancha);
    exigir(buffer.size() <= antes && !(lectura.mala && lectura.trama));
    if (!lectura.trama || ancha) continue;
    const TramaVEK& t = *lectura.trama;
    QByteArray otra = construirVEK(t.secuencia, cuerpoVEK(t.addr, t.codigo, t.datos));
    exigir(leerVEK(otra, false).trama == t && otra.isEmpty());
  }
}

void leerTodoNODAL(QByteArray& buffer) {
  for (LecturaNODAL lectura{true, {}}; lectura.hayLinea;) {
    lectura = leerNODAL(buffer);
    if (!lectura.trama) continue;
    QByteArray otra = construirNODAL(*lectura.trama);
    exigir(leerNODAL(otra).trama == lectura.trama && otra.isEmpty());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t tamano) {
  if (tamano == 0) return 0;
  const int pieza = 1 + datos[0] / 4;
  QByteArray buffer;
  for (size_t i = 1; i < tamano; i += static_cast<size_t>(pieza)) {
    const size_t n = std::min(static_cast<size_t>(pieza), tamano - i);
    buffer.append(reinterpret_cast<const char*>(datos + i), static_cast<qsizetype>(n));
    datos[0] % 4 == 0 ? leerTodoNODAL(buffer) : leerTodoVEK(buffer, datos[0] % 4 == 1);
    exigir(buffer.size() <= kMaxPendiente + pieza || buffer.front() == kACK);
  }
  return 0;
}
