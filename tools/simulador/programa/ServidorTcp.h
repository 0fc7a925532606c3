// A wire behind a TCP port of this computer. A second connection while one is up is turned away.
#pragma once

#include <QTcpServer>
#include <QTcpSocket>

#include "simulador/Cable.h"

namespace tarvo::simulador {

class ServidorTcp {
 public:
  explicit ServidorTcp(Cable& cable);
  ~ServidorTcp();
  // False when the port can't be had; error() says why.
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
