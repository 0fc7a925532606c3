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
  // Timetables.
  kTxColEstado = 8506,
  kTxColHora = 8507,
  kTxColDia = 8508,  // to 8514
  kTxColProceso = 8515,
  kTxColOK = 8516,
  kTxColKO = 8517,
  kTxEstadoEntrada = 8520,  // to 8525
  kTxProximo = 8526,
  kTxFaltan = 8527,
  kTxNadaProgramado = 8528,
  kTxDesactivado = 8529,
  kTxSinLineas = 8530,
  kTxSiguiente = 8531,
  kTxSeEjecuta = 8532,
  kTxElijaEnEspera = 8533,
  kTxEnMarcha = 8534,
  kTxLineasHorario = 8539,
  // Their editor.
  kTxEscribaNombre = 8570,
  kTxElijaProceso = 8571,
  kTxYaHayProgramacion = 8572,
  kTxLineaSinProceso = 8573,
  kTxCambiosSinGuardar = 8574,
  kTxLineaNueva = 8576,
  kTxSinNingunDia = 8577,
  kTxProgramacion = 8579,
  kTxDiaSemana = 8580,  // to 8586
  kTxGuardeAntes = 8588,
  // Traces.
  kTxLineaDe = 8628,
  kTxNoEncontrado = 8629,
  kTxSinMasProblemas = 8630,
  kTxLineasTraza = 8631,
  kTxTrazaDe = 8638,
  kTxSiguePorElOtroLado = 8639,
};

}  // namespace tarvo::automation
