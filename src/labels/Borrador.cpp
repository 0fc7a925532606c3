#include "labels/Borrador.h"

namespace tarvo::labels {

void Borrador::cargar(EstadoFormato guardado) {
  estado_ = guardado;
  guardado_ = std::move(guardado);
  antes_.clear();
  despues_.clear();
}

void Borrador::ponerJuego(const std::optional<QString>& juego) {
  estado_.juego = guardado_.juego = juego;
  for (Estados* pila : {&antes_, &despues_})
    for (EstadoFormato& e : *pila) e.juego = juego;
}

bool Borrador::poner(EstadoFormato nuevo, bool sigue) {
  if (nuevo == estado_) return false;
  if (!sigue || antes_.empty()) antes_.push_back(std::move(estado_));
  estado_ = std::move(nuevo);
  despues_.clear();
  return true;
}

bool Borrador::pasar(Estados& desde, Estados& hacia) {
  if (desde.empty()) return false;
  hacia.push_back(std::move(estado_));
  estado_ = std::move(desde.back());
  desde.pop_back();
  return true;
}

}  // namespace tarvo::labels
