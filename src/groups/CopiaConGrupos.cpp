#include "groups/CopiaConGrupos.h"

#include <algorithm>

namespace tarvo::groups {

Resultado<bool> CopiaConGrupos::paso(qint64& hechos, qint64& total) {
  if (copia_.numero() == 0) {
    TARVO_TOMAR(const auto todos, grupos_.todos());
    quedan_.clear();
    for (const Resumen& g : todos)
      if (conGrupos_ && g.seccion == copia_.origen()) quedan_.push_back(g.codigo);
    std::ranges::reverse(quedan_);
    return copia_.paso(hechos, total);
  }
  if (quedan_.empty()) return copia_.paso(hechos, total);
  TARVO_INTENTAR(grupos_.copiar(quedan_.back(), copia_.numero()));
  quedan_.pop_back();
  ++copiados_;
  return true;
}

}  // namespace tarvo::groups
