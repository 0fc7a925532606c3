#include "app/ventanas/Registro.h"

#include "comm/ventanas/Registro.h"

namespace tarvo::app {

// One line a room.
void registrarVentanas(ventanas::Ventanas& ventanas, Aplicacion& aplicacion) {
  comm::registrarVentanasComm(ventanas, {.motor = aplicacion.gestcomm(),
                                         .enlaces = aplicacion.enlaces(),
                                         .sesion = aplicacion.sesion(),
                                         .registro = aplicacion.registro()});
}

}  // namespace tarvo::app
