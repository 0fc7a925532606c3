#include "comm/maquinas/Nodal.h"
#include "comm/maquinas/Vek.h"
#include "comm/tareas/Fabricas.h"
#include "comm/tareas/UnaTrama.h"

namespace tarvo::tareas {

namespace {

// The present moment, taken anew each time the frame is sent.
class Hora final : public UnaTrama {
 public:
  using UnaTrama::UnaTrama;

 protected:
  maquinas::Peticion peticion() const override {
    const Fecha ahora = entorno().reloj.ahora();
    return nodal() ? maquinas::nodal::fechaHora(ahora) : maquinas::vek::fechaHora(ahora);
  }
};

}  // namespace

Curso crearTxHora(const motor::DatosTarea& t, const motor::Entorno& e) {
  return std::make_unique<Hora>(t, e);
}

}  // namespace tarvo::tareas
