// The doors of the windows of imports. `carpeta`: where they look for files, in place of the last
// one.
#pragma once

#include "core/ventanas/marco/Puerta.h"

namespace tarvo::importar {

// `seccion`: for the window of tables that it leads to.
struct PuertaImpPLU {
  static constexpr QStringView kNombre = u"ImpPLU";
  QString carpeta = {};
  int seccion = 0;
};

// `fichero` is read at once; `seccion`: for rows that don't say theirs.
struct PuertaImpTabla {
  static constexpr QStringView kNombre = u"ImpTabla";
  QString carpeta = {}, fichero = {};
  int seccion = 0;
};

struct PuertaMainTvc {
  static constexpr QStringView kNombre = u"MainTvc";
  QString carpeta = {};
};

}  // namespace tarvo::importar
