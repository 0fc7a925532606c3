#include "core/ventanas/edicion/Renglon.h"

#include <algorithm>

namespace tarvo::ventanas {

bool Renglon::escrito() const {
  return leido_ || std::ranges::any_of(campos_, &Campo::tocado);
}

Resultado<> Renglon::leer() {
  leido_ = escrito();
  Resultado<> todos;
  for (Campo* c : campos_) {
    const auto leido = c->leer();
    if (leido || !todos) continue;
    todos = leido;
    c->enfocar();
  }
  return todos;
}

void Renglon::mostrar() {
  leido_ = false;
  for (Campo* c : campos_) c->mostrar();
}

}  // namespace tarvo::ventanas
