// Numbers of the texts of this room's windows.
#pragma once

namespace tarvo::importar {

enum TextoImportarVentanas : int {
  kTxSeleccione = 4620,
  kTxListo = 4621,
  kTxLeyendo = 4622,
  kTxInterrumpido = 4623,
  kTxConExito = 4624,
  kTxNoReconocibles = 4625,
  kTxLanzar = 4626,
  kTxOtroFichero = 4627,
  kTxHechoPLU = 4628,
  kTxTransmisionCompleta = 4629,
  kTxNLineas = 4630,
  kTxLinea = 4631,
  kTxMotivo = 4632,
  kTxDiceLaLinea = 4633,
  kTxSinMalas = 4634,
  kTxNMalas = 4635,
  kTxConfirmarDeshacer = 4636,
  kTxDeshecho = 4637,
  kTxDeshechoFuera = 4638,
  kTxSinFicheros = 4639,
  kTxParadoEnLinea = 4640,
  kTxOtraCarpeta = 4641,
  kTxListaFicheros = 4642,
  kTxIniciar = 4669,
  kTxSeleccioneTvc = 4670,
  kTxPuedeIniciar = 4671,
  kTxNoValido = 4672,
  kTxTerminado = 4673,
  kTxProcesando = 4674,
  kTxOtro = 4675,
  kTxInterrumpir = 4676,
  kTxSeguroInterrumpir = 4677,
  kTxHechoTvc = 4678,
  kTxConvirtiendo = 4679,
  kTxSeccionMala = 4680,
};

}  // namespace tarvo::importar
