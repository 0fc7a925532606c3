// What TARVO.INI keeps for the catalogue.
#pragma once

#include <array>

namespace tarvo {
struct SalaDeAjustes;
}

namespace tarvo::articles {

struct AjustesArticulos {
  // What happens to changes when their window closes: of departments, of articles. 0 nothing, 1 a
  // question, 2 they are sent.
  std::array<int, 2> EnviarCambios{1, 1};
};

SalaDeAjustes ajustesArticulos();

}  // namespace tarvo::articles
