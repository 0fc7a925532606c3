#include "articles/importar/RepartoCodigos.h"

namespace tarvo::importar {

using articles::ClaveArticulo;

Resultado<> RepartoCodigos::leer(dao::Database& db, int seccion) {
  const auto [suyos, falta] = ahora_.try_emplace(seccion);
  if (!falta) return {};
  return dao::recorrer(
      db.consultar(
          u"SELECT CodBarExt, CODPLU FROM PLUSES WHERE SECCION=? AND CodBarExt IS NOT NULL",
          seccion),
      [&codigos = suyos->second](const dao::Recordset& fila) {
        codigos.insert(fila.texto(0), fila.entero(1));
      });
}

const int* RepartoCodigos::filaDe(ClaveArticulo clave) const {
  const auto f = filas_.find(clave);
  return f == filas_.end() ? nullptr : &f->second;
}

Resultado<std::optional<qint64>> RepartoCodigos::pedir(dao::Database& db, int fila,
                                                       ClaveArticulo clave,
                                                       const std::optional<QString>& tiene,
                                                       const QString& quiere) {
  TARVO_INTENTAR(leer(db, clave.seccion));
  const auto [otra, primera] = quien_.emplace(std::pair(clave.seccion, quiere), fila);
  if (!primera) return peticiones_.at(otra->second).clave.codigo;
  const qint64 dueno = ahora_[clave.seccion].value(quiere, 0);
  filas_[clave] = fila;
  peticiones_[fila] = {clave, tiene, quiere, dueno};
  return std::nullopt;
}

// A row that gets nothing keeps its own, which is then unavailable to others.
std::vector<RepartoCodigos::Negado> RepartoCodigos::negados() {
  std::vector<int> faltan;
  for (const auto& [fila, p] : peticiones_)
    if (p.dueno > 0 && !filaDe({p.clave.seccion, p.dueno})) faltan.push_back(fila);
  std::vector<Negado> salida;
  while (!faltan.empty()) {
    Peticion& p = peticiones_.at(faltan.back());
    if (!std::exchange(p.negada, true)) salida.push_back({faltan.back(), p.quiere, p.dueno});
    faltan.pop_back();
    if (!p.tiene) continue;
    const auto siguiente = quien_.find({p.clave.seccion, *p.tiene});
    if (siguiente != quien_.end() && !peticiones_.at(siguiente->second).negada)
      faltan.push_back(siguiente->second);
  }
  return salida;
}

std::set<int> RepartoCodigos::juntas() const {
  std::set<int> salida;
  for (const auto& [fila, p] : peticiones_) {
    if (p.dueno == 0 || p.negada) continue;
    salida.insert(fila);
    if (const int* suya = filaDe({p.clave.seccion, p.dueno})) salida.insert(*suya);
  }
  return salida;
}

}  // namespace tarvo::importar
