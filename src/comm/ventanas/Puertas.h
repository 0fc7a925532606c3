// The doors of the windows of communications.
#pragma once

#include "core/ajustes/Ajustes.h"
#include "core/ventanas/marco/Puerta.h"

namespace tarvo::comm {

// The protocol's times and the four channels.
struct PuertaCfgComm {
  static constexpr QStringView kNombre = u"CfgComm";
};

// Port and line, and the orders of the modem, of one channel.
struct PuertaEdiParms {
  static constexpr QStringView kNombre = u"EdiParms";
  using Salida = ParamCanal;
  int numero = 1;
  ParamCanal canal = {};
};
struct PuertaATModf {
  static constexpr QStringView kNombre = u"ATModf";
  using Salida = ParamCanal;
  int numero = 1;
  ParamCanal canal = {};
};

}  // namespace tarvo::comm
