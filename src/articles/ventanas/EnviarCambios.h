// Changes not yet sent to the machines when a window that changed articles is closed.
#pragma once

#include <QMenu>

#include "articles/Catalogo.h"
#include "comm/motor/gestcomm.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::articles {

// Depending on the second value of EnviarCambios, does nothing, asks, or sends. The list of changed
// sections is cleared. The window of communications is closed after the transmission, which the
// owner of `quien` then reports. False if the user goes back to `quien` at the question: then
// nothing has been done, and the window stays open.
bool enviarAlSalir(ventanas::Ventana& quien, Catalogo& catalogo, motor::gestcomm& motor);

// Adds the three choices of that value. A choice is written to the settings file at once.
void montarMenuEnvio(QMenu& menu, ventanas::Ventana& quien);

}  // namespace tarvo::articles
