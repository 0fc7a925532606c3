// tarvo-plantilla FILE: writes the empty database that the program copies when it has none.
#include <cstdio>

#include "core/esquema/Esquema.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "uso: tarvo-plantilla FICHERO\n");
    return 64;
  }
  const auto r = tarvo::esquema::escribirPlantilla(QString::fromLocal8Bit(argv[1]));
  if (r) return 0;
  std::fprintf(stderr, "%s\n", qPrintable(r.error().texto));
  return 1;
}
