#include "comm/maquinas/Nodal.h"
#include "comm/tareas/Fabricas.h"
#include "comm/tareas/UnaTrama.h"

namespace tarvo::tareas {

namespace {

class CierreTickets final : public UnaTrama {
 public:
  using UnaTrama::UnaTrama;

 protected:
  maquinas::Peticion peticion() const override { return maquinas::nodal::cerrarTickets(); }
};

}  // namespace

Curso crearTxCerr(const motor::DatosTarea& t, const motor::Entorno& e) {
  return std::make_unique<CierreTickets>(t, e);
}

}  // namespace tarvo::tareas
