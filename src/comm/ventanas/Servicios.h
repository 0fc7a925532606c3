// The engines used by the windows of communications.
#pragma once

#include <memory>

#include "comm/enlace/Escucha.h"
#include "comm/envios/Grupos.h"
#include "comm/motor/gestcomm.h"
#include "totals/libros/Sesion.h"

namespace tarvo::comm {

// The listener to the lines, shared by all windows; it exists as long as a window holds it.
class Oido {
 public:
  std::shared_ptr<enlace::Escucha> tomar(enlace::Enlaces& enlaces, Reloj& reloj) {
    auto e = escucha_.lock();
    if (!e) escucha_ = e = std::make_shared<enlace::Escucha>(enlaces, reloj);
    return e;
  }

 private:
  std::weak_ptr<enlace::Escucha> escucha_;
};

// All objects referred to outlive all windows.
struct Servicios {
  motor::gestcomm& motor;
  enlace::Enlaces& enlaces;
  totals::Sesion& sesion;
  const motor::RepertorioTareas& repertorio;
  const envios::Grupos& grupos;
  std::shared_ptr<Oido> oido = std::make_shared<Oido>();
};

}  // namespace tarvo::comm
