// The common part of scales and registers: the VEK frame, the one-byte acknowledgement, and the
// refusal "ERR nn".
#pragma once

#include "simulador/Maquina.h"

namespace tarvo::simulador {

class MaquinaVEK : public Maquina {
 public:
  MaquinaVEK(OpcionesMaquina opciones, Reloj& reloj, bool ancha);

 protected:
  std::vector<Entrada> leer(const QByteArray& bytes) override { return lector_.leer(bytes); }
  void vaciarLector() override { lector_.vaciar(); }
  Respuesta negar(int error) override;
  Peticion otroNumero(Peticion peticion) const override;
  QByteArray ack(const Peticion& peticion) override;
  QByteArray nak(const Peticion& peticion) override;
  QByteArray rechazar(const Peticion& peticion) override;
  QByteArray construir(const Mensaje& mensaje) override;
  QByteArray conControlMalo(QByteArray trama) const override;

  // One answer with the code of the question.
  Respuesta con(const QByteArray& datos) const { return {{{actual_.codigo, datos}}}; }

 private:
  bool ancha_;
  LectorVEK lector_;
  int secuencia_ = 0;  // each machine counts its own frames
};

}  // namespace tarvo::simulador
