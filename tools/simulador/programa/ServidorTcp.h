// A wire behind a TCP port of this computer. A second connection while one is up is refused.
#pragma once

#include <QTcpServer>
#include <QTcpSocket>

#include "simulador/Cable.h"

namespace tarvo::simulador {

class ServidorTcp {
 public:
  explicit ServidorTcp(Cable& cable);
  ~ServidorTcp();
  // False if the port isn't available; error() has the reason.
  bool escuchar(quint16 puerto);
  QString error() const { return servidor_.errorString(); }

 private:
  void atender();
  void colgar(bool limpio);

  Cable& cable_;
  QTcpServer servidor_;
  QTcpSocket* socket_ = nullptr;  // the server's child
};

}  // namespace tarvo::simulador
