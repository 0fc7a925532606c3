// The texts of the windows of processes, by number; see docs/textos.md.
#pragma once

namespace tarvo::automation {

enum TextoAutomationVentanas : int {
  // The process that runs.
  kTxListo = 8401,
  kTxEjecutandose = 8402,
  kTxRetenido = 8403,
  kTxTerminado = 8404,
  kTxColNumero = 8416,
  kTxColPaso = 8417,
  kTxColResultado = 8418,
  kTxColMotivo = 8419,
  kTxEstadoPaso = 8420,  // to 8424
  kTxSinProceso = 8425,
  kTxVaASuspender = 8426,
  kTxTambienEliminara = 8427,
  kTxNoSeCargo = 8428,
  kTxYaHayProceso = 8429,
  kTxNoSeCierra = 8430,
  kTxPasoDe = 8431,
  kTxTareasEnCola = 8432,
  kTxTrazaEjecucion = 8433,
  kTxPasosProceso = 8434,
  // Parameters.
  kTxNumeroMalo = 8466,
  kTxFechasAlReves = 8467,
  kTxDelAl = 8469,
  kTxMuestraPregunta = 8471,
};

}  // namespace tarvo::automation
