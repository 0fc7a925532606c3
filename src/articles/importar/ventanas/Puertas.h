// The doors of the windows of imports. `carpeta`: the folder for the files, instead of the last
// one.
#pragma once

#include "core/ventanas/marco/Puerta.h"

namespace tarvo::importar {

// `seccion`: passed on to the window of tables.
struct PuertaImpPLU {
  static constexpr QStringView kNombre = u"ImpPLU";
  QString carpeta = {};
  int seccion = 0;
};

// `fichero` is read at once; `seccion`: for rows that don't contain theirs.
struct PuertaImpTabla {
  static constexpr QStringView kNombre = u"ImpTabla";
  QString carpeta = {}, fichero = {};
  int seccion = 0;
};

struct PuertaMainTvc {
  static constexpr QStringView kNombre = u"MainTvc";
  QString carpeta = {};
  bool operator==(const PuertaMainTvc&) const = default;
};

}  // namespace tarvo::importar
