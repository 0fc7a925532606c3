#include "simulador/MaquinaVEK.h"

namespace tarvo::simulador {

MaquinaVEK::MaquinaVEK(OpcionesMaquina opciones, Reloj& reloj, bool ancha)
    : Maquina(std::move(opciones), reloj), ancha_(ancha), lector_(ancha) {}

// On a register the letters are where the frame needs a digit, so there a refusal ends as a
// time-out.
Respuesta MaquinaVEK::negar(int error) {
  return con("ERR" + campo(error, 2));
}

// Questions begin with the requested number, in two or seven digits.
Peticion MaquinaVEK::otroNumero(Peticion peticion) const {
  const int ancho = peticion.datos.size() >= 7 ? 7 : 2;
  const qint64 numero = leerCampo(peticion.datos, 0, ancho);
  if (numero >= 0) peticion.datos.replace(0, ancho, campo(numero + 1, ancho));
  return peticion;
}

QByteArray MaquinaVEK::ack(const Peticion&) {
  return QByteArray(1, 0x06);
}
QByteArray MaquinaVEK::nak(const Peticion&) {
  return QByteArray(1, 0x15);
}
QByteArray MaquinaVEK::rechazar(const Peticion&) {
  return QByteArray(1, 0x15);
}

QByteArray MaquinaVEK::construir(const Mensaje& mensaje) {
  secuencia_ = (secuencia_ + 1) % 100;
  const int estacion = opciones().estacion;
  return ancha_ ? tramaVEKAncha(secuencia_, estacion, mensaje.codigo, mensaje.datos)
                : tramaVEK(secuencia_, estacion, actual_.addr, mensaje.codigo, mensaje.datos);
}

QByteArray MaquinaVEK::conControlMalo(QByteArray trama) const {
  // Off by 50, which no single flipped bit of the frame can compensate.
  char& decenas = trama[trama.size() - 3];
  decenas = static_cast<char>('0' + (decenas - '0' + 5) % 10);
  return trama;
}

}  // namespace tarvo::simulador
