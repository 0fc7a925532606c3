// A group of scales on VEK, kinds 1 and 4: a single station that answers for all its scales.
#pragma once

#include "simulador/MaquinaVEK.h"

namespace tarvo::simulador {

class Bascula final : public MaquinaVEK {
 public:
  Bascula(OpcionesMaquina opciones, Reloj& reloj);
  // Configuration frames as received (keyboards, tickets, labels, operators...), by code and
  // address.
  const std::map<std::pair<int, int>, std::vector<QByteArray>>& configuracion() const {
    return configuracion_;
  }

 protected:
  bool esParaMi(const Peticion& peticion) const override;
  Respuesta atender(const Peticion& peticion) override;
  bool esCero(int codigo) const override { return codigo == 910 || codigo == 915; }

 private:
  Respuesta total(const Peticion& peticion);
  Respuesta articuloConVentas(qint64 desde);
  Respuesta operadorHora(const Peticion& peticion);
  Respuesta guardarArticulo(const QByteArray& datos);
  Respuesta articuloOPrecio(const QByteArray& datos);
  Respuesta borrarArticulo(const QByteArray& datos);
  Respuesta lineas(const QByteArray& datos);
  Respuesta olvidar(const QByteArray& datos);
  Respuesta configurar(const Peticion& peticion);
  QByteArray puestos() const;
  bool birch() const { return opciones().tipo == Tipo::Birch; }

  std::map<std::pair<int, int>, std::vector<QByteArray>> configuracion_;
};

}  // namespace tarvo::simulador
