// Makes the real wires: by the device of a configured channel, or by the name of a connector in
// CONECTORES.INI. REQUIRES that the clock and the settings outlive it. Wires may outlive it.
#pragma once

#include "comm/cables/LinkSocket.h"
#include "core/tiempo/Reloj.h"

namespace tarvo {
class Ajustes;
}

namespace tarvo::enlace {

class Ocupados;
struct AjustesCables;

class FabricaReal final : public FabricaEnlaces {
 public:
  FabricaReal(Reloj& reloj, const Ajustes& ajustes);
  std::unique_ptr<LinkSocket> crear(TipoAcceso device) override;
  std::unique_ptr<LinkSocket> crearConector(const QString& nombre, int& razon) override;

 private:
  Reloj& reloj_;
  const Ajustes& ajustes_;
  const AjustesCables& suyos_;
  std::shared_ptr<Ocupados> ocupados_;
};

}  // namespace tarvo::enlace
