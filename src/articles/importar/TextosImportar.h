// Numbers of the texts of this room.
#pragma once

namespace tarvo::importar {

enum TextoImportar : int {
  kTxMalaLongitud = 4601,
  kTxNoSonCifras = 4602,
  kTxMalaUnidad = 4603,
  kTxDelSistema = 4604,
  kTxSinSeccion = 4605,
  kTxDemasiadoGrande = 4606,
  kTxFicheroVacio = 4607,
  kTxSeccionNueva = 4608,
};

}  // namespace tarvo::importar
