// A direct cable on a serial port.
#pragma once

#include "comm/cables/CableReal.h"
#include "comm/cables/PuertoSerie.h"

namespace tarvo::enlace {

// From a port number to the device, or empty if there is no such port.
using RutaDePuerto = std::function<QString(int)>;

class CableSerie final : public CableReal {
 public:
  // By port number, as a channel configures it.
  CableSerie(Reloj& reloj, std::shared_ptr<Ocupados> ocupados, RutaDePuerto rutaDe);
  // By device and settings, as a connector names them.
  CableSerie(Reloj& reloj, std::shared_ptr<Ocupados> ocupados, QString ruta, QString rs232);
  ~CableSerie() override { cortar(); }
  bool configurar(const ParametrosLinea& parametros) override;
  void enviar(const QByteArray& bytes) override;

 protected:
  QString acceso() const override;
  int razonOcupado() const override { return rutaDe_ ? kPuertoOcupado : kEnUso; }
  int empezar() override;
  void terminar() override;
  void cortar() override { puerto_.cerrar(); }
  void vencePlazo() override;

 private:
  const RutaDePuerto rutaDe_;
  QString ruta_, rs232_;
  int controlLinea_ = 0;
  PuertoSerie puerto_;
};

}  // namespace tarvo::enlace
