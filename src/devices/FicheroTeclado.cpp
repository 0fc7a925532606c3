#include "devices/FicheroTeclado.h"

#include "core/ajustes/Ficheros.h"
#include "devices/TextosDevices.h"

namespace tarvo::devices {

namespace {
constexpr qint64 kLimite = 64 * 1024;  // many times the largest keyboard
}  // namespace

Resultado<> guardarTeclado(const QString& ruta, const Teclado& teclado) {
  return ficheros::escribirEntero(ruta, ficheros::codificar(teclado.portapapeles()));
}

Resultado<QString> leerTeclado(const QString& ruta, const Textos& textos) {
  const auto bytes = ficheros::leerBytes(ruta, kLimite);
  if (!bytes && bytes.error().clase != Fallo::Formato) return std::unexpected(bytes.error());
  const QString texto = bytes ? ficheros::descodificar(*bytes) : QString();
  if (Teclado(0).quePega(texto) == Teclado::Pegado::NoEsTeclado)
    return fallo(Fallo::Formato, textos(kTxNoEsFicheroTeclado, {ruta}));
  return texto;
}

}  // namespace tarvo::devices
