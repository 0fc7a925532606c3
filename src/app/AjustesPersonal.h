// The settings of the main window in TARVO.INI: the person's own entries.
#pragma once

#include <QString>
#include <vector>

namespace tarvo {
struct SalaDeAjustes;
}

namespace tarvo::app {

struct Personal {
  QString titulo, proceso;
  bool operator==(const Personal&) const = default;
};

struct AjustesPersonal {
  std::vector<Personal> personal;
};

SalaDeAjustes ajustesPersonal();

}  // namespace tarvo::app
