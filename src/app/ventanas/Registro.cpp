#include "app/ventanas/Registro.h"

#include "totals/ventanas/RegistroTotales.h"

namespace tarvo::app {

// One line a room.
void registrarVentanas(ventanas::Ventanas& ventanas, Aplicacion& aplicacion) {
  totals::registrarVentanasTotales(ventanas, aplicacion.sesion(), aplicacion.periodos());
}

}  // namespace tarvo::app
