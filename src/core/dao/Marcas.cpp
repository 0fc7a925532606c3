#include "core/dao/Marcas.h"

#include <algorithm>

namespace tarvo::dao {

QString conMarcas(QStringView sentencia, std::initializer_list<Marca> marcas) {
  QString texto;
  while (!sentencia.isEmpty()) {
    const qsizetype abre = sentencia.indexOf(u'{');
    const qsizetype cierra = abre < 0 ? -1 : sentencia.indexOf(u'}', abre);
    if (cierra < 0) break;
    const auto suya =
        std::ranges::find(marcas, sentencia.sliced(abre + 1, cierra - abre - 1), &Marca::nombre);
    texto += sentencia.first(abre);
    if (suya == marcas.end())
      texto += sentencia.sliced(abre, cierra + 1 - abre);
    else
      texto += suya->texto;
    sentencia = sentencia.sliced(cierra + 1);
  }
  return texto += sentencia;
}

}  // namespace tarvo::dao
