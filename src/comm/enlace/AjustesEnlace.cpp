#include "comm/enlace/AjustesEnlace.h"

#include "core/ajustes/Sala.h"

namespace tarvo::enlace {

SalaDeAjustes ajustesEnlace() {
  using A = AjustesEnlace;
  return salaDeAjustes(
      A(),
      {clave<&A::TimeOut, ini::leerLimitado<kLimitesRespuesta>>(201, u"TimeOut"),
       clave<&A::TimeACK, ini::leerLimitado<kLimitesRespuesta>>(204, u"TimeACK"),
       clave<&A::FactorEsperaNDL, ini::leerLimitado<kLimitesEspera>>(205, u"FactorEsperaNDL")});
}

}  // namespace tarvo::enlace
