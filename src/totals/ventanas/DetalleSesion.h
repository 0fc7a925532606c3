// What the detail of the inbox shows, and what is chosen there.
#pragma once

#include <vector>

#include "totals/libros/CerrSes.h"

namespace tarvo::totals {

struct DetalleSesion {
  std::vector<Recibido> recibidos;
  std::vector<Propuesto> propuestos;
  bool sustituir = true;
  int elegido = -1;  // of `propuestos`; -1 for each its own
};

}  // namespace tarvo::totals
