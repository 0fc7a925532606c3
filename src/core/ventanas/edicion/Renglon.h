// The fields of one line of a list in a sheet: they are read when the line is added, and then
// cleared for the next.
//
//   apartar(enlazarCampo(*ui_.txCon, modo), renglon_);
//   ...
//   if (const auto leido = renglon_.leer(); !leido) return decirDuda(leido.error().texto);
//   r.lineas.push_back(linea_);
//   linea_ = {};
//   renglon_.mostrar();
#pragma once

#include <vector>

#include "core/ventanas/edicion/Campo.h"

namespace tarvo::ventanas {

class Renglon {
 public:
  // Whether something was typed since the last mostrar().
  bool escrito() const;
  // Reads all fields into their members. Each fault is marked beside its field; the first such
  // field gets the focus, and its fault is the error.
  Resultado<> leer();
  void mostrar();  // shows the members in all fields

 private:
  friend class Ficha;
  std::vector<Campo*> campos_;
  bool leido_ = false;  // since it was shown
};

}  // namespace tarvo::ventanas
