#include "comm/maquinas/Balanzas.h"

#include <algorithm>

namespace tarvo::maquinas {

Peticion balanzas(Protocolo protocolo) {
  return {protocolo == Protocolo::Nodal ? kPreguntaNodal : kPreguntaVek, {}};
}

std::optional<std::vector<bool>> leerBalanzas(QByteArrayView datos) {
  constexpr qsizetype kMaxBalanzas = 99;
  const auto deLas = [](char c) { return c == '0' || c == '1'; };
  if (datos.isEmpty() || datos.size() > kMaxBalanzas || !std::ranges::all_of(datos, deLas))
    return std::nullopt;
  std::vector<bool> estan;
  for (const char c : datos) estan.push_back(c == '1');
  return estan;
}

}  // namespace tarvo::maquinas
