#include "app/Consola.h"

#include <cstdio>

namespace tarvo::app {

namespace {

// A reader that has gone is no reason to stop a night, so failures are ignored.
void escribirLinea(std::FILE* salida, const QString& linea) {
  const QByteArray bytes = linea.toUtf8() + '\n';
  std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), salida);
  std::fflush(salida);
}

}  // namespace

void decir(const QString& linea) {
  escribirLinea(stdout, linea);
}
void avisar(const QString& linea) {
  escribirLinea(stderr, linea);
}

}  // namespace tarvo::app
