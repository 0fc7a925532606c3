// Shop and machines of the communications window.
#pragma once

#include "MesaDeComm.h"

namespace tarvo::prueba {

struct Gestcomm : MesaDeComm {
  void dosGrupos() {
    for (const int g : {1, 2}) {
      grupo(g, 1, QStringLiteral("cable %1").arg(g));
      vender(g, 10, 500 * g, 250);
    }
    articulo(10);
  }
  // The machine misses that question the first time, which delays the transfer by two seconds.
  void lenta(int g, int pregunta) {
    fallo(g, {.averia = simulador::Averia::Sorda, .trama = pregunta});
  }
};

}  // namespace tarvo::prueba
