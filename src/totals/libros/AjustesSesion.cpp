#include "totals/libros/AjustesSesion.h"

#include "core/ajustes/Sala.h"

namespace tarvo::totals {

namespace {

constexpr Limites kEstados{0, 2};

}  // namespace

SalaDeAjustes ajustesSesion(Fecha ahora) {
  using A = AjustesSesion;
  return salaDeAjustes(
      A{.SesionAbier = 0, .SesionHasta = ahora, .SesionACero = ahora},
      {clave<&A::SesionAbier, ini::leerLimitado<kEstados>>(800, u"SesiónAbier"),
       clave<&A::SesionHasta, ini::leerFecha, ini::verFecha>(801, u"SesiónHasta"),
       clave<&A::SesionACero, ini::leerFecha, ini::verFecha>(802, u"SesiónACero")});
}

}  // namespace tarvo::totals
