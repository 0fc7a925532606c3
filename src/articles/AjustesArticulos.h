// The settings of the catalogue in TARVO.INI.
#pragma once

#include <array>

namespace tarvo {
struct SalaDeAjustes;
}

namespace tarvo::articles {

struct AjustesArticulos {
  // Changes of a group when it is stored, and of articles when their window closes: 0 nothing, 1 a
  // question, 2 they are sent.
  std::array<int, 2> EnviarCambios{1, 1};
};

SalaDeAjustes ajustesArticulos();

}  // namespace tarvo::articles
