// The texts of processes, by number; see docs/textos.md.
#pragma once

namespace tarvo::automation {

enum TextoAutomation : int {
  kTxIniciada = 8001,
  kTxRetenida = 8002,
  kTxInterrumpida = 8003,
  kTxFinalizada = 8004,
  kTxTareasTercas = 8005,
  kTxEjecuteDeNuevo = 8006,
  kTxSeAbandona = 8007,
  kTxSeReintenta = 8008,
  kTxSinDiario = 8010,
  kTxSeReanuda = 8011,
  kTxRechazadoAlReanudar = 8012,
  kTxNoSeReanuda = 8013,
  kTxPasosViejos = 8014,
  kTxHabiaMemorizado = 8015,
  kTxAnotacionesHechas = 8016,
  kTxFaltaParametro = 8020,
  kTxConfiguracionSinGuardar = 8021,
  kTxAvanceSinAnotar = 8022,
  kTxRechazados = 8023,
  kTxReintentosMalos = 8024,
  kTxOrdenNoExiste = 8025,
  kTxTrazaSinEscribir = 8026,
  kTxNoSeEjecutara = 8027,
  kTxDiarioDanado = 8030,
  kTxFaltaDiario = 8031,
  // The language.
  kTxEnLinea = 8040,
  kTxNoEsTexto = 8041,
  kTxFaltaFinal = 8042,
  kTxFueraDeSitio = 8043,
  kTxSinLetra = 8044,
  kTxNoEsActivacion = 8045,
  kTxNoEsNumero = 8046,
  kTxNoEsSiNo = 8047,
  kTxNoEsFecha = 8048,
  kTxNoEsTarea = 8049,
  kTxNoEsClasePeriodo = 8050,
  kTxNoEsOrden = 8051,
  kTxMensajePaso = 8100,  // to 8114: by code of a step
  // The morning.
  kTxNoComunica = 8300,
  kTxNadaEjecutado = 8301,
  kTxNadieLoNombra = 8302,
  kTxNoRecogido = 8303,
  kTxCortado = 8304,
  kTxSinCero = 8305,
  kTxNoHecho = 8306,
  kTxEnCurso = 8307,
  kTxNoCuadran = 8308,
  kTxCuadran = 8309,
  kTxRecogidoYCero = 8310,
  kTxRecogido = 8311,
  kTxHecho = 8312,
  kTxErrorSinTexto = 8313,
  kTxNadaRecogido = 8314,
};

}  // namespace tarvo::automation
