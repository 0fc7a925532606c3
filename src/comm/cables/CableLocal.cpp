#include "comm/cables/CableLocal.h"

namespace tarvo::enlace {

namespace {
constexpr int kMsLocal = 3000;
}

CableLocal::CableLocal(Reloj& reloj, std::shared_ptr<Ocupados> ocupados, QString ruta)
    : CableReal(reloj, std::move(ocupados)), ruta_(std::move(ruta)) {
  QObject::connect(&socket_, &QLocalSocket::connected, &socket_, [this] { abierto(); });
  QObject::connect(&socket_, &QLocalSocket::readyRead, &socket_,
                   [this] { llegado(socket_.readAll()); });
  QObject::connect(&socket_, &QLocalSocket::errorOccurred, &socket_,
                   [this](QLocalSocket::LocalSocketError cual) { error(cual); });
  QObject::connect(&socket_, &QLocalSocket::disconnected, &socket_, [this] { fallado(kCaidaTcp); });
}

int CableLocal::empezar() {
  plazo(kMsLocal);
  socket_.connectToServer(ruta_);
  return kBien;
}

void CableLocal::error(QLocalSocket::LocalSocketError cual) {
  if (estado() != kAbriendo) return fallado(kCaidaTcp);
  fallado(cual == QLocalSocket::ServerNotFoundError ? int{kSinHost} : int{kPuertoTcpCerrado});
}

void CableLocal::terminar() {
  socket_.flush();
  if (socket_.bytesToWrite() == 0 && despedirse(socket_.socketDescriptor())) return;
  plazo(kMsLocal);
  socket_.disconnectFromServer();
  if (socket_.state() == QLocalSocket::UnconnectedState) cerrado(kBien);
}

void CableLocal::cortar() {
  socket_.blockSignals(true);
  socket_.abort();
}

void CableLocal::vencePlazo() {
  estado() == kAbriendo ? fallado(kPuertoTcpCerrado) : cerrado(kBien);
}

void CableLocal::enviar(const QByteArray& bytes) {
  if (estado() == kConectado) socket_.write(bytes);
}

}  // namespace tarvo::enlace
