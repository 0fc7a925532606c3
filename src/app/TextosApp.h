// The texts of the command line, by number; see docs/textos.md.
#pragma once

namespace tarvo::app {

enum TextoApp : int {
  kTxSinVentanas = 1101,
  kTxFaltaProceso = 1102,
  kTxOpcionDesconocida = 1103,
  kTxFaltaValor = 1104,
  kTxIdiomaDesconocido = 1105,
  kTxDatoMalo = 1106,
  kTxSobraArgumento = 1107,
  kTxCuadreSolo = 1108,
  kTxVerAyuda = 1109,
  kTxCarpetaNoExiste = 1110,
  kTxCarpetaOcupada = 1111,
  kTxCarpetaSinPermiso = 1112,
  kTxAjustesIlegibles = 1113,
  kTxBaseNoAbierta = 1114,
  kTxProcesoNoCargado = 1115,
  kTxFaltaDato = 1116,
  kTxAjustesNoGuardados = 1117,
  kTxInterrumpiendo = 1118,
  kTxCuadreFallido = 1119,
  kTxSinArranque = 1120,
  kTxVersion = 1121,
  kTxActivado = 1122,
  kTxDatoMaloParaPregunta = 1123,
  kTxVentanaDesconocida = 1124,
  kTxTemaDesconocido = 1125,
  kTxVentanaSola = 1126,
  kTxSinPantalla = 1127,
  // The help, a line a number, up to the first that is missing.
  kTxAyuda = 1130,
};

}  // namespace tarvo::app
