// The error codes of the link layer itself, and their mapping from the reasons of a wire. The whole
// table, with the meaning of each code: docs/protocolos.md.
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
  kErrorPuertoTcp = 23,
  kErrorSinConector = 24,
  kErrorSinModem = 25,
  kErrorSinHost = 26,
  kErrorEnUso = 27,
};

// The code for the reason with which an opening ended, the same for every kind of wire: a TCP
// channel also distinguishes an unknown host from one that refuses.
int errorDeApertura(int razon);
// The code for the reason with which a closing ended.
int errorDeCierre(int razon, bool conector);

}  // namespace tarvo::enlace
