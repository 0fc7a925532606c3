// The doors of the windows of communications.
#pragma once

#include "comm/cables/AjustesCables.h"
#include "core/ventanas/marco/Puerta.h"

namespace tarvo::comm {

// The protocol's times and the four channels.
struct PuertaCfgComm {
  static constexpr QStringView kNombre = u"CfgComm";
};

// Port and line, and the orders of the modem, of one channel.
struct PuertaEdiParms {
  static constexpr QStringView kNombre = u"EdiParms";
  using Salida = enlace::ParamCanal;
  int numero = 1;
  enlace::ParamCanal canal = {};
};
struct PuertaATModf {
  static constexpr QStringView kNombre = u"ATModf";
  using Salida = enlace::ParamCanal;
  int numero = 1;
  enlace::ParamCanal canal = {};
};

}  // namespace tarvo::comm
