#include "app/ventanas/Registro.h"

#include "automation/ventanas/Registro.h"

namespace tarvo::app {

// One line a room.
void registrarVentanas(ventanas::Ventanas& ventanas, Aplicacion& aplicacion) {
  automation::registrarVentanasAutomation(ventanas, aplicacion.automat(), aplicacion.cronos(),
                                          aplicacion.lenguaje(), aplicacion.gestcomm());
}

}  // namespace tarvo::app
