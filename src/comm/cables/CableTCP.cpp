#include "comm/cables/CableTCP.h"

namespace tarvo::enlace {

namespace {
constexpr int kMsConexion = 20000, kMsDesconexion = 3000;
}  // namespace

CableTCP::CableTCP(Reloj& reloj, std::shared_ptr<Ocupados> ocupados, QString host, int puerto)
    : CableReal(reloj, std::move(ocupados)), host_(std::move(host)), puerto_(puerto) {
  QObject::connect(&socket_, &QTcpSocket::connected, &socket_, [this] {
    socket_.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    socket_.setSocketOption(QAbstractSocket::KeepAliveOption, 1);
    abierto();
  });
  QObject::connect(&socket_, &QTcpSocket::readyRead, &socket_,
                   [this] { llegado(socket_.readAll()); });
  QObject::connect(&socket_, &QTcpSocket::errorOccurred, &socket_,
                   [this](QAbstractSocket::SocketError cual) { error(cual); });
  QObject::connect(&socket_, &QTcpSocket::disconnected, &socket_, [this] { fallado(kCaidaTcp); });
}

bool CableTCP::configurar(const ParametrosLinea& parametros) {
  if (!parametros.host.isEmpty()) host_ = parametros.host;
  if (parametros.puertoTcp != 0) puerto_ = parametros.puertoTcp;
  return true;
}

QString CableTCP::acceso() const {
  return QStringLiteral("tcp:%1:%2").arg(host_.toLower()).arg(puerto_);
}

int CableTCP::empezar() {
  if (host_.isEmpty()) return kSinHost;
  if (puerto_ < 1 || puerto_ > 0xFFFF) return kPuertoTcpCerrado;
  plazo(kMsConexion);
  socket_.connectToHost(host_, static_cast<quint16>(puerto_));
  return kBien;
}

void CableTCP::error(QAbstractSocket::SocketError cual) {
  llegado(socket_.readAll());  // the last bytes before the end count
  switch (cual) {
    case QAbstractSocket::HostNotFoundError:
    case QAbstractSocket::NetworkError:
      return estado() == kAbriendo ? fallado(kSinHost) : fallado(kCaidaTcp);
    case QAbstractSocket::ConnectionRefusedError:
    case QAbstractSocket::SocketTimeoutError:
      return estado() == kAbriendo ? fallado(kPuertoTcpCerrado) : fallado(kCaidaTcp);
    default:
      return fallado(kCaidaTcp);
  }
}

void CableTCP::terminar() {
  socket_.flush();
  if (socket_.bytesToWrite() == 0 && despedirse(socket_.socketDescriptor())) return;
  plazo(kMsDesconexion);
  socket_.disconnectFromHost();
  if (socket_.state() == QAbstractSocket::UnconnectedState) cerrado(kBien);
}

void CableTCP::cortar() {
  socket_.blockSignals(true);
  socket_.abort();
}

void CableTCP::vencePlazo() {
  estado() == kAbriendo ? fallado(kPuertoTcpCerrado) : cerrado(kBien);
}

void CableTCP::enviar(const QByteArray& bytes) {
  if (estado() == kConectado) socket_.write(bytes);
}

}  // namespace tarvo::enlace
