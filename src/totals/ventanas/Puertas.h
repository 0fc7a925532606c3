// The doors of the windows of totals.
#pragma once

#include <optional>

#include "core/valores/Fecha.h"
#include "core/ventanas/marco/Puerta.h"
#include "totals/ventanas/DetalleSesion.h"

namespace tarvo::totals {

// The span of the rows that are shown; nothing for an open end. `mision`: the kind of period, whose
// months and years are stepped through.
struct IntervaloFila {
  std::optional<Fecha> desde, hasta;
};
struct PuertaImpUnaFila {
  static constexpr QStringView kNombre = u"ImpUnaFila";
  using Salida = IntervaloFila;
  int mision = 1;
  QString titulo = {};
};

// One period, new or changed, and totals keyed in by hand; its LINK. `tipo`: what a new one begins
// with.
struct PuertaEditIntv {
  static constexpr QStringView kNombre = u"EditIntv";
  using Salida = qint64;
  std::optional<qint64> link = {};
  int tipo = 1;
};

// What was received, and where it is to go; what is chosen there.
struct PuertaFormDetalles {
  static constexpr QStringView kNombre = u"FormDetalles";
  using Salida = DetalleSesion;
  DetalleSesion detalle = {};
};

}  // namespace tarvo::totals
