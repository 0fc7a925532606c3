// The windows of the catalogue, by name.
#pragma once

#include "articles/Catalogo.h"
#include "articles/Operadores.h"
#include "comm/motor/gestcomm.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::articles {

// REQUIRES that all arguments outlive all windows.
void registrarVentanasArticulos(ventanas::Ventanas& ventanas, articles::Catalogo& catalogo,
                                articles::Operadores& operadores, motor::gestcomm& motor);

}  // namespace tarvo::articles
