#include "simulador/programa/ServidorTcp.h"

namespace tarvo::simulador {

ServidorTcp::ServidorTcp(Cable& cable) : cable_(cable) {
  QObject::connect(&servidor_, &QTcpServer::newConnection, &servidor_, [this] { atender(); });
}

ServidorTcp::~ServidorTcp() {
  if (socket_) colgar(false);
}

bool ServidorTcp::escuchar(quint16 puerto) {
  return servidor_.listen(QHostAddress::LocalHost, puerto);
}

void ServidorTcp::atender() {
  while (QTcpSocket* nuevo = servidor_.nextPendingConnection()) {
    const auto salida = [this](const QByteArray& bytes) {
      if (!socket_) return;
      socket_->write(bytes);
      socket_->flush();
    };
    if (!cable_.abrir({salida, [this](bool limpio) { colgar(limpio); }})) {
      nuevo->abort();
      nuevo->deleteLater();
      continue;
    }
    socket_ = nuevo;
    nuevo->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    QObject::connect(nuevo, &QTcpSocket::readyRead, nuevo,
                     [this, nuevo] { cable_.recibir(nuevo->readAll()); });
    QObject::connect(nuevo, &QTcpSocket::disconnected, nuevo, [this, nuevo] {
      if (socket_ == nuevo) cable_.cerrar();
      if (socket_ == nuevo) socket_ = nullptr;
      nuevo->deleteLater();
    });
    if (nuevo->bytesAvailable() > 0) cable_.recibir(nuevo->readAll());
  }
}

// The wire was closed on our side: after all bytes were sent, or as a dropped line.
void ServidorTcp::colgar(bool limpio) {
  QTcpSocket* socket = std::exchange(socket_, nullptr);
  if (!socket) return;
  if (limpio)
    socket->disconnectFromHost();
  else
    socket->abort();
}

}  // namespace tarvo::simulador
