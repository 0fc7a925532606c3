// A TCP connection to the machine, or to the converter it is connected to.
#pragma once

#include <QTcpSocket>

#include "comm/cables/CableReal.h"

namespace tarvo::enlace {

class CableTCP final : public CableReal {
 public:
  CableTCP(Reloj& reloj, std::shared_ptr<Ocupados> ocupados, QString host = {}, int puerto = 0);
  ~CableTCP() override { cortar(); }
  // Keeps the host and port it was created with if the values have none.
  bool configurar(const ParametrosLinea& parametros) override;
  void enviar(const QByteArray& bytes) override;

 protected:
  QString acceso() const override;
  int empezar() override;
  void terminar() override;
  void cortar() override;
  void vencePlazo() override;

 private:
  void error(QAbstractSocket::SocketError cual);
  QString host_;
  int puerto_;
  QTcpSocket socket_;
};

}  // namespace tarvo::enlace
