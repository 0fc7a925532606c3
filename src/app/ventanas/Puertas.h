// The doors of the program's own windows.
#pragma once

#include <cstddef>
#include <optional>

#include "core/ventanas/marco/Puerta.h"

namespace tarvo::app {

// An entry of the user's own: an existing one by its index in the settings, or a new one.
struct PuertaElemPerso {
  static constexpr QStringView kNombre = u"ElemPerso";
  std::optional<std::size_t> cual = {};
};

// The panel of settings.
struct PuertaPortalCnf {
  static constexpr QStringView kNombre = u"PortalCnf";
  bool operator==(const PuertaPortalCnf&) const = default;
};

// The main window.
struct PuertaMainTarvo {
  static constexpr QStringView kNombre = u"MainTarvo";
  bool operator==(const PuertaMainTarvo&) const = default;
};

}  // namespace tarvo::app
