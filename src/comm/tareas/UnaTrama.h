// A task of one frame, which is done with its good answer.
#pragma once

#include "comm/maquinas/Campos.h"
#include "comm/motor/Tarea.h"

namespace tarvo::tareas {

class UnaTrama : public motor::CursoTarea {
 public:
  UnaTrama(const motor::DatosTarea& t, const motor::Entorno& e) : t_(t), e_(e) {}

  Resultado<motor::Siguiente> siguiente() override {
    if (hecha_) return motor::Siguiente::fin();
    const maquinas::Peticion p = peticion();
    return motor::Siguiente{motor::Siguiente::Enviar, nodal() ? t_.Addr : 0, p.codigo, p.datos};
  }
  bool encaja(int, int codigo, const QByteArray&) const override {
    return nodal() || codigo == peticion().codigo;
  }
  Resultado<> respuesta(int, int, const QByteArray&) override {
    hecha_ = true;
    return {};
  }
  Resultado<std::vector<totals::Aviso>> cerrar() override { return std::vector<totals::Aviso>{}; }
  qint64 avance() const override { return hecha_ ? 1 : 0; }

 protected:
  virtual maquinas::Peticion peticion() const = 0;
  bool nodal() const { return t_.protocolo == Protocolo::Nodal; }
  const motor::Entorno& entorno() const { return e_; }

 private:
  const motor::DatosTarea t_;
  const motor::Entorno e_;
  bool hecha_ = false;
};

}  // namespace tarvo::tareas
