// The contents of the detail of the inbox, and the user's choices in it.
#pragma once

#include <vector>

#include "totals/libros/CerrSes.h"

namespace tarvo::totals {

struct DetalleSesion {
  std::vector<Recibido> recibidos;
  std::vector<Propuesto> propuestos;
  bool sustituir = true;
  int elegido = -1;  // index into `propuestos`; -1: each reading to its own
};

}  // namespace tarvo::totals
