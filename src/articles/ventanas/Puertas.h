// The doors of the windows of the catalogue.
#pragma once

#include "core/ventanas/marco/Puerta.h"

namespace tarvo::articles {

// The VAT rates of a section, and which of them each department has.
struct PuertaEdIvaSeccs {
  static constexpr QStringView kNombre = u"EdIvaSeccs";
  int seccion = 1;
};

// Whether to send what was changed now; `que` says what was changed.
struct RespuestaEnvio {
  bool si = false, noMas = false;
};
struct PuertaQueHacemos {
  static constexpr QStringView kNombre = u"QueHacemos";
  using Salida = RespuestaEnvio;
  QString que = {};
};

// An operator to be picked: its code.
struct PuertaSelOpe {
  static constexpr QStringView kNombre = u"SelOpe";
  using Salida = int;
};

// The section into which articles are copied or moved. `seccion`: the one shown, which isn't
// offered.
struct PuertaEntNmSc {
  static constexpr QStringView kNombre = u"EntNmSc";
  using Salida = int;
  bool mover = false;
  int seccion = 0, cuantos = 1;
};

}  // namespace tarvo::articles
