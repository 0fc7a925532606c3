#include "comm/motor/AjustesMotor.h"

#include "core/ajustes/Sala.h"

namespace tarvo::motor {

namespace {

bool leerUno(const QString& v, bool& campo) {
  campo = v == u"1";
  return campo || v == u"0";
}

QString verUno(bool b) {
  return ini::verEntero(b ? 1 : 0);
}

}  // namespace

SalaDeAjustes ajustesMotor() {
  using A = AjustesMotor;
  return salaDeAjustes(
      A(), {clave<&A::TimeCero, ini::leerLimitado<kLimitesRespuesta>>(202, u"TimeCero"),
            clave<&A::IntentosManual, ini::leerLimitado<kLimitesIntentos>>(203, u"IntentosManual"),
            clavePropia<&A::AceptaOtroCodigo, leerUno, verUno>(1302, u"AceptaOtroCodigo")});
}

}  // namespace tarvo::motor
