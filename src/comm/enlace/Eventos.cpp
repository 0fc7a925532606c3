// From the frame machine and the wire to the clients. During an event a client may send, close,
// drop the link or open another: the link outlives the event and re-reads its own state afterwards.
#include "comm/enlace/EstadoComtvIP.h"

namespace tarvo::enlace {

void comtvIP::Estado::aplazar(std::function<void()> accion) {
  aplazados.push_back(std::move(accion));
  if (!luego->activo()) luego->unaVez(kMsDescarga);
}

void comtvIP::Estado::soltar() {
  const auto acciones = std::exchange(aplazados, {});
  for (const auto& accion : acciones)
    if (!acabado) accion();
}

void comtvIP::Estado::avisarApertura(bool motor, int error) {
  avisar([&] {
    if (motor && cliente) cliente->Abrir_Evento(canal, error);
    if (!motor && clienteLinea) clienteLinea->Abrir_Evento(canal, error);
  });
}

void comtvIP::Estado::avisarCierre(bool motor, int error) {
  avisar([&] {
    if (motor && cliente) cliente->Cerrar_Evento(canal, error);
    if (!motor && clienteLinea) clienteLinea->Cerrar_Evento(canal, error);
  });
}

void comtvIP::Estado::pasan(Sentido sentido, const QByteArray& bytes) const {
  if (casa.alPasar) casa.alPasar(canal, sentido, paraAbierto == Para::NodalMotor, bytes);
}

void comtvIP::Estado::escribir(const QByteArray& bytes) {
  if (!cable || acabado) return;
  pasan(Sentido::Sale, bytes);
  cable->enviar(bytes);
}

void comtvIP::Estado::vaciarCable() {
  if (cable && !acabado) cable->vaciarRecepcion();
}

Deudas& comtvIP::Estado::deudas() {
  const QString linea = conector || device == TipoAcceso::Modem || device == TipoAcceso::TcpIp
                            ? acceso.trimmed().toCaseFolded()
                            : QString::number(canal);
  return casa
      .deudas[QString::number(numeroDe(conector ? TipoAcceso::Conector : device)) + u' ' + linea];
}

bool comtvIP::Estado::encaja(int addr, int codigo, const QByteArray& datos) {
  bool si = cliente != nullptr;
  avisar([&] { si = si && cliente->encaja(canal, addr, codigo, datos); });
  return si;
}

void comtvIP::Estado::envioVEK(int error, int addr, int codigo, const QByteArray& datos) {
  avisar([&] {
    if (cliente) cliente->EnvioVEK_Evento(canal, error, addr, codigo, datos);
  });
}

void comtvIP::Estado::reciboVEK(int error, int addr, int codigo, const QByteArray& datos) {
  avisar([&] {
    if (cliente) cliente->ReciboVEK_Evento(canal, error, addr, codigo, datos);
  });
}

void comtvIP::Estado::envioNDL(int error) {
  avisar([&] {
    if (cliente) cliente->EnvioNDL_Evento(canal, error);
  });
}

void comtvIP::Estado::reciboNDL(int error, int codigo, const QByteArray& datos) {
  avisar([&] {
    if (cliente) cliente->ReciboNDL_Evento(canal, error, codigo, datos);
  });
}

void comtvIP::Estado::transaccion(int addr, const QByteArray& datos) {
  avisar([&] {
    if (clienteLinea) clienteLinea->ReciboVEK_Evento(canal, addr, datos);
  });
}

}  // namespace tarvo::enlace
