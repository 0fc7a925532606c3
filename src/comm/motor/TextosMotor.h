// The texts of the task engine, by number; see docs/textos.md.
#pragma once

namespace tarvo::motor {

enum TextoMotor : int {
  kTxError = 2000,       // to 2104: by error code
  kTxErrorModem = 2200,  // to 2208: by error code less 200
  kTxEstado = 2210,      // to 2218: by state of a task
  kTxNoOlvidar = 2220,
  kTxFalloSinAnotar = 2221,
  kTxBalanzasContestan = 2225,
  kTxModemContesta = 2226,
  kTxDetalleSenales = 2228,
  kTxDetalleRechazo = 2229,
  // By kind of task.
  kTxNombreClase = 2300,   // to 2324
  kTxMensajeClase = 2330,  // to 2354
  kTxTituloClase = 2360,   // to 2384
};

}  // namespace tarvo::motor
