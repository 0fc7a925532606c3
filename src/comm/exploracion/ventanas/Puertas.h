// The door of the assistant that finds out what is connected.
#pragma once

#include "core/ventanas/marco/Puerta.h"

namespace tarvo::exploracion {

struct PuertaWizInicio {
  static constexpr QStringView kNombre = u"WizInicio";
  bool operator==(const PuertaWizInicio&) const = default;
};

}  // namespace tarvo::exploracion
