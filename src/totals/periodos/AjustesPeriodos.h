// The settings of periods in TARVO.INI: the working day, and the periods memorised last.
#pragma once

#include <array>
#include <vector>

#include "core/valores/Fecha.h"

namespace tarvo {
struct SalaDeAjustes;
}

namespace tarvo::totals {

struct AjustesPeriodos {
  std::vector<int> UltimosPeriodos;
  // Fractions of a day.
  Fecha InicioHorario = Fecha::deDias(8 / 24.0), FinalHorario = Fecha::deDias(20 / 24.0);
  float ToleranciaHora = 0.25F;
  std::array<bool, 7> FestivoSemanal{};  // index 0 Monday to 6 Sunday
};

SalaDeAjustes ajustesPeriodos();

}  // namespace tarvo::totals
