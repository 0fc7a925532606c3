// A connection to a socket on this computer, where another program plays the scales.
#pragma once

#include <QLocalSocket>

#include "comm/cables/CableReal.h"

namespace tarvo::enlace {

class CableLocal final : public CableReal {
 public:
  CableLocal(Reloj& reloj, std::shared_ptr<Ocupados> ocupados, QString ruta);
  ~CableLocal() override { cortar(); }
  bool configurar(const ParametrosLinea&) override { return true; }
  void enviar(const QByteArray& bytes) override;

 protected:
  QString acceso() const override { return QStringLiteral("local:") + ruta_; }
  int empezar() override;
  void terminar() override;
  void cortar() override;
  void vencePlazo() override;

 private:
  void error(QLocalSocket::LocalSocketError cual);
  const QString ruta_;
  QLocalSocket socket_;
};

}  // namespace tarvo::enlace
