// The fields of a sheet that make one line of a list in it: they are read when the line is added,
// and empty again for the next.
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
  // Whether something is written that wasn't added yet.
  bool escrito() const;
  // All fields into their members. Each fault is marked beside its field; the first one gets the
  // focus, and its words are the error's.
  Resultado<> leer();
  void mostrar();  // the members in all fields

 private:
  friend class Ficha;
  std::vector<Campo*> campos_;
  bool leido_ = false;  // since it was shown
};

}  // namespace tarvo::ventanas
