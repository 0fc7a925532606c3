// Registers all windows of the program by name. Each room registers its own; they are joined here.
#pragma once

#include "app/Aplicacion.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::app {

// Registers the main window and its own ones: MainTarvo, PortalCnf, ElemPerso. REQUIRES that the
// application outlives all windows.
void registrarVentanasPrincipal(ventanas::Ventanas& ventanas, Aplicacion& aplicacion);
// Registers all windows.
void registrarVentanas(ventanas::Ventanas& ventanas, Aplicacion& aplicacion);

}  // namespace tarvo::app
