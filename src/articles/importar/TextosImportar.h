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
  kTxHojaMala = 4609,
  kTxDemasiadasCeldas = 4610,
  kTxNoVale = 4611,
  kTxSinCodigo = 4612,
  kTxSinNombre = 4613,
  kTxSinDepartamentos = 4614,
  kTxSinDepartamento = 4615,
  kTxRepetido = 4616,
  kTxNoSeCrean = 4617,
  kTxCodigoDeOtro = 4618,
  kTxNadaHecho = 4619,
  kTxLargoTvc = 4643,
  kTxNoEsCodigo = 4644,
  kTxNoEsSeccion = 4645,
  kTxOtroFormato = 4646,
  kTxCampos = 4700,        // to 4719
  kTxPreciosNivel = 4720,  // to 4722
  kTxPrecioSolo = 4723,
  kTxUnidades = 4724,      // to 4726
  kTxClasesBarras = 4727,  // to 4728
  kTxSiNo = 4729,          // to 4730
  kTxCodigosMovidos = 4792,
};

}  // namespace tarvo::importar
