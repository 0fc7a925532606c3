// The doors of the windows of keyboards.
#pragma once

#include "core/ventanas/marco/Puerta.h"
#include "devices/Modelos.h"
#include "devices/Teclado.h"

namespace tarvo::devices {

// Edits the keyboard of a scale and returns its texts. `balanza`: the place of the machine in its
// group, from 0. `seccion`: whose articles the keys sell.
struct PuertaTeclado {
  static constexpr QStringView kNombre = u"Teclado";
  using Salida = TextosTeclado;
  int tipo = 1;
  QString grupo = {};
  int balanza = 0, seccion = 1;
  TextosTeclado textos = {};
};

}  // namespace tarvo::devices
