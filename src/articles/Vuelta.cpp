#include "articles/Vuelta.h"

namespace tarvo::articles {

Resultado<bool> Vuelta::paso(Trabajo::Avance& avance) {
  auto hayMas = lotes_.deshacerTramo(lote_, ventana_, hecho_);
  avance.hechos = hecho_.vistos;
  avance.total = articulos_;
  return hayMas;
}

Resultado<> Vuelta::hastaElFinal() {
  Trabajo::Avance avance;
  for (;;) {
    TARVO_TOMAR(const auto hayMas, paso(avance));
    if (!hayMas) return {};
  }
}

}  // namespace tarvo::articles
