// Before a frame whose answer must be its own, the machine listens until the line has been quiet
// for the answer time. Input is passed over.
#include <algorithm>
#include <utility>

#include "comm/enlace/MaquinaDeEstados.h"
#include "comm/enlace/comtvIP.h"

namespace tarvo::enlace {

void MaquinaDeEstados::callar(Pendiente pendiente) {
  pendiente_ = std::move(pendiente);
  estado_ = kCallando;
  iniciarEspera(std::max(tiempoRespuesta_, tiempos_.ack));
  ruido_ = inicio_;
  leerLuego();
}

// A NODAL frame isn't acknowledged: the machine would take that for the acknowledgement of another.
// Transactions don't count as noise, since a shop sells all day.
bool MaquinaDeEstados::datosCallando() {
  if (exterior_.para() == Para::NodalMotor) {
    vaciar();
  } else {
    const qsizetype antes = entrada_.size();
    quitarACKs();
    const bool soloACKs = antes != entrada_.size();
    if (leerTramas(false) == Leido::Transaccion && !soloACKs) return true;
    if (estado_ != kCallando) return true;
  }
  ruido_ = reloj_.monotono();
  prorrogar(intervalo_);
  return true;
}

void MaquinaDeEstados::venceCallando() {
  const Pendiente pendiente = std::exchange(pendiente_, {});
  const bool quieta = reloj_.monotono() - ruido_ >= intervalo_;
  vaciar();
  reposar();
  if (!quieta) return pendiente.rendirse();
  exterior_.deudas().saldar();
  pendiente.lanzar();
}

}  // namespace tarvo::enlace
