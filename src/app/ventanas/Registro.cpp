#include "app/ventanas/Registro.h"

namespace tarvo::app {

// One line a room.
void registrarVentanas(ventanas::Ventanas& ventanas, Aplicacion& aplicacion) {
  static_cast<void>(ventanas);
  static_cast<void>(aplicacion);
}

}  // namespace tarvo::app
