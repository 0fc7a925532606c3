// The assistant of explorations, for the registry.
#pragma once

#include "articles/Catalogo.h"
#include "comm/cables/LinkSocket.h"
#include "comm/motor/gestcomm.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::exploracion {

// All objects referred to outlive all windows. `fabrica`: the one of the program's links, so that
// no line in use is opened. `semilla` draws the first numbers of frames.
struct Servicios {
  articles::Catalogo& catalogo;
  enlace::FabricaEnlaces& fabrica;
  motor::gestcomm& motor;
  quint64 semilla = 0;
};
void registrarVentanasExploracion(ventanas::Ventanas& ventanas, const Servicios& servicios);

}  // namespace tarvo::exploracion
