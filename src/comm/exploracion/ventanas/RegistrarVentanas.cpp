#include "comm/exploracion/ventanas/RegistrarVentanas.h"

#include "comm/exploracion/ventanas/WizInicio.h"

namespace tarvo::exploracion {

void registrarVentanasExploracion(ventanas::Ventanas& ventanas, const Servicios& servicios) {
  ventanas.registrar<PuertaWizInicio, WizInicio>(Servicios(servicios));
}

}  // namespace tarvo::exploracion
