// What the machines have not heard of yet, when a window that changed articles closes.
#pragma once

#include <QMenu>

#include "articles/Catalogo.h"
#include "comm/motor/gestcomm.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::articles {

// By the second value of EnviarCambios: nothing, asks, or sends. The sections changed are
// forgotten. The window of communications goes when all is sent, and the owner of `quien` says so.
void enviarAlSalir(ventanas::Ventana& quien, Catalogo& catalogo, motor::gestcomm& motor);

// The three marks of that value. What is chosen is written to the settings file at once.
void montarMenuEnvio(QMenu& menu, ventanas::Ventana& quien);

}  // namespace tarvo::articles
