// An Ebony machine, kind 2: a node of a NODAL wire that several nodes may share.
#pragma once

#include "simulador/Maquina.h"

namespace tarvo::simulador {

class MaquinaNODAL final : public Maquina {
 public:
  MaquinaNODAL(OpcionesMaquina opciones, Reloj& reloj);

 protected:
  std::vector<Entrada> leer(const QByteArray& bytes) override;
  void vaciarLector() override { lector_.vaciar(); }
  bool esParaMi(const Peticion& peticion) const override;
  Respuesta atender(const Peticion& peticion) override;
  Respuesta negar(int error) override;
  Peticion otroNumero(Peticion peticion) const override;
  bool esCero(int codigo) const override { return codigo == 71; }
  QByteArray ack(const Peticion& peticion) override;
  QByteArray nak(const Peticion& peticion) override;
  QByteArray rechazar(const Peticion& peticion) override;
  QByteArray construir(const Mensaje& mensaje) override;
  QByteArray conControlMalo(QByteArray trama) const override;

 private:
  Respuesta totales(const Peticion& peticion);
  std::vector<QByteArray> articulos(qint64 desde, qint64 hasta) const;
  std::vector<QByteArray> porNumero(const std::map<int, Cuenta>& mapa) const;
  std::vector<QByteArray> operadoresHora() const;
  std::vector<QByteArray> pedidos() const;
  Respuesta lista(const std::vector<QByteArray>& registros) const;
  Respuesta fin() const;
  Respuesta guardarArticulo(const QByteArray& datos);
  Respuesta borrarArticulos();
  Respuesta puestos() const;
  QByteArray trama(int destino, int codigo, const QByteArray& datos);

  LectorNODAL lector_;
  int secuencia_ = 0;
};

}  // namespace tarvo::simulador
