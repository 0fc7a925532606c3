#include "app/ventanas/Registro.h"

#include "comm/ventanas/Registro.h"
#include "totals/ventanas/RegistroTotales.h"

namespace tarvo::app {

// One line a room.
void registrarVentanas(ventanas::Ventanas& ventanas, Aplicacion& aplicacion) {
  comm::registrarVentanasComm(ventanas, {.motor = aplicacion.gestcomm(),
                                         .enlaces = aplicacion.enlaces(),
                                         .sesion = aplicacion.sesion(),
                                         .registro = aplicacion.registro()});
  totals::registrarVentanasTotales(ventanas, aplicacion.sesion(), aplicacion.periodos());
}

}  // namespace tarvo::app
