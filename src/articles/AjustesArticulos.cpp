#include "articles/AjustesArticulos.h"

#include "core/ajustes/Sala.h"

namespace tarvo::articles {

SalaDeAjustes ajustesArticulos() {
  return salaDeAjustes(
      AjustesArticulos(),
      {clave<&AjustesArticulos::EnviarCambios, ini::leerPar, ini::verPar>(907, u"EnviarCambios")});
}

}  // namespace tarvo::articles
