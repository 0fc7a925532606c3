// The session in TARVO.INI: a mirror, the truth is in the database.
#pragma once

#include "core/valores/Fecha.h"

namespace tarvo {
struct SalaDeAjustes;
}

namespace tarvo::totals {

struct AjustesSesion {
  int SesionAbier = 0;
  Fecha SesionHasta, SesionACero;
};

// SesionHasta and SesionACero begin at `ahora`.
SalaDeAjustes ajustesSesion(Fecha ahora = {});

}  // namespace tarvo::totals
