// A cash register, kind 3: VEK with codes of four digits, several registers on one wire,
// distinguished by address.
#pragma once

#include "simulador/MaquinaVEK.h"

namespace tarvo::simulador {

class Registradora final : public MaquinaVEK {
 public:
  Registradora(OpcionesMaquina opciones, Reloj& reloj);

 protected:
  bool esParaMi(const Peticion& peticion) const override;
  Respuesta atender(const Peticion& peticion) override;
  bool esCero(int codigo) const override;

 private:
  Respuesta articulos(const QByteArray& datos);
  Respuesta totales();
  Respuesta guardarArticulo(const QByteArray& datos);
  Respuesta borrarArticulos(const QByteArray& datos);
  QByteArray barras(int articulo) const;
};

}  // namespace tarvo::simulador
