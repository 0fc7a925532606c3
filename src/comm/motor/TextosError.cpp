// The texts of the error codes of the communications layers: docs/protocolos.md.
#include "comm/motor/TextosMotor.h"
#include "comm/motor/gestcomm.h"

namespace tarvo::motor {

namespace {

constexpr int kUltimoErrorDeMaquina = 104, kPrimerErrorDeModem = 200, kUltimoErrorDeModem = 208;

// The numbers between those of machines and modems belong to other texts.
QString mensajeError(int codigo, const Textos& textos) {
  if (codigo >= 1 && codigo <= kUltimoErrorDeMaquina) return textos(kTxError + codigo);
  if (codigo >= kPrimerErrorDeModem && codigo <= kUltimoErrorDeModem)
    return textos(kTxErrorModem + codigo - kPrimerErrorDeModem);
  return {};
}

QString cabeceraError(int codigo, const Textos& textos) {
  if (codigo < 100) return {};
  if (codigo < 200) return textos(kTxBalanzasContestan, {codigo - 100});
  return textos(kTxModemContesta, {codigo - 200});
}

QString detalleError(int codigo, const Textos& textos) {
  if (codigo == 18) return textos(kTxDetalleSenales);
  if (codigo == 19) return textos(kTxDetalleRechazo);
  return {};
}

}  // namespace

TextosError textosError(int codigo, const Textos& textos) {
  TextosError t;
  t.cabecera = cabeceraError(codigo, textos);
  t.mensaje = mensajeError(codigo, textos);
  t.detalle = detalleError(codigo, textos);
  return t;
}

}  // namespace tarvo::motor
