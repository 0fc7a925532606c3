// Numbers of the texts of this room.
#pragma once

namespace tarvo::articles {

enum TextoArticles : int {
  kTxIntocables = 4000,
  kTxArticuloBorrado = 4001,
  kTxSinNumeros = 4002,
  kTxNuevaSeccion = 4003,
  kTxSinNombre = 4004,
  kTxIvaIncorrecto = 4005,
  kTxNuevoDepartamento = 4006,
  kTxTipoIvaIncorrecto = 4007,
  kTxCopiaSinAcabar = 4008,
  kTxCopiaDe = 4009,
  kTxOperadorIncorrecto = 4010,
  kTxLoteOlvidado = 4600,
};

}  // namespace tarvo::articles
