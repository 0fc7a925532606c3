// Every window of the program, by name. Each room registers its own; here they come together.
#pragma once

#include "app/Aplicacion.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::app {

// The main window and its own: MainTarvo, PortalCnf, ElemPerso. REQUIRES that the application
// outlives all windows.
void registrarVentanasPrincipal(ventanas::Ventanas& ventanas, Aplicacion& aplicacion);
// All of them.
void registrarVentanas(ventanas::Ventanas& ventanas, Aplicacion& aplicacion);

}  // namespace tarvo::app
