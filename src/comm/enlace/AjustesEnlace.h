// The settings of a link's dialogue in TARVO.INI: waits in ms.
#pragma once

namespace tarvo {
struct SalaDeAjustes;
}

namespace tarvo::enlace {

struct AjustesEnlace {
  int TimeOut = 10000, TimeACK = 2000;  // for an answer, for an acknowledgement
  int FactorEsperaNDL = 2000;           // for each unit of a wait frame
};

SalaDeAjustes ajustesEnlace();

}  // namespace tarvo::enlace
