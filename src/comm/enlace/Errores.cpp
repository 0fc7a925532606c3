#include "comm/enlace/Errores.h"

namespace tarvo::enlace {

int errorDeApertura(int razon) {
  // By reason, 0 to 18; 200 for an unknown one.
  constexpr int kPorRazon[] = {0,  4,  18, 10, 11, 12, 11, 11, 13, 31,
                               10, 29, 26, 23, 30, 28, 24, 27, 25};
  constexpr int kDesconocida = 200;
  const bool conocida = razon >= 0 && razon < static_cast<int>(sizeof kPorRazon / sizeof(int));
  return conocida ? kPorRazon[razon] : kDesconocida;
}

int errorDeCierre(int razon, bool conector) {
  const bool mal = conector ? razon > 0 : razon != 0;
  return mal ? kErrorDesconexion : 0;
}

}  // namespace tarvo::enlace
