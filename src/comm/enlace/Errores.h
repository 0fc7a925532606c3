// The error codes that the link layer itself gives, and how the reasons of a wire become such
// codes. The whole table, with what each code means to a shop: docs/protocolos.md.
#pragma once

namespace tarvo::enlace {

enum CodigoError : int {
  kErrorPuerto = 4,
  kErrorTiempoApertura = 5,
  kErrorTiempoRecepcion = 6,
  kErrorNodalSinConfirmar = 8,
  kErrorModem = 10,
  kErrorNoContesta = 11,
  kErrorInterrumpido = 13,
  kErrorSinCanal = 14,
  kErrorEnlaceCerrado = 15,
  kErrorSinACK = 16,
  kErrorSinRespuesta = 17,
  kErrorSenales = 18,
  kErrorRechazo = 19,
  kErrorDesconexion = 20,
  kErrorEnUso = 27,
};

// The code for a reason with which an opening ended, the same for every kind of wire: a TCP
// channel, too, tells a host that isn't found from one that refuses.
int errorDeApertura(int razon);
// The code for a reason with which a closing ended.
int errorDeCierre(int razon, bool conector);

}  // namespace tarvo::enlace
