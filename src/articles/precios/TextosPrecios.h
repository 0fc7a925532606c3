// Numbers of the texts of this room.
#pragma once

namespace tarvo::precios {

enum TextoPrecios : int {
  kTxOfertaQueFalta = 4300,
  kTxAcabanAntes = 4301,
  kTxFormatoMalo = 4309,
  kTxSinDepartamento = 4312,
  kTxValorMalo = 4302,     // to 4311
  kTxPrecioNoVale = 4313,  // to 4315
  kTxPrecioAlto = 4316,
};

}  // namespace tarvo::precios
