// A format being edited, with the name of its text set: every state it had, for undoing without
// limit, and whether it differs from what is stored.
#pragma once

#include <optional>

#include "labels/Formato.h"

namespace tarvo::labels {

struct EstadoFormato {
  Formato formato;
  std::optional<QString> juego = {};  // the name of its text set
  bool operator==(const EstadoFormato&) const = default;
};

class Borrador {
 public:
  const EstadoFormato& estado() const { return estado_; }
  const Formato& formato() const { return estado_.formato; }

  // Begins with what is stored; forgets all former states.
  void cargar(EstadoFormato guardado);
  // The present state becomes the stored one.
  void guardado() { guardado_ = estado_; }
  // What is stored besides has changed, without a step of its own.
  void ponerJuego(const std::optional<QString>& juego);
  bool cambiado() const { return !(estado_ == guardado_); }

  // A change is one step; what was undone before it is lost. `sigue`: it belongs to the last step,
  // as the repeats of a held key do. False if nothing changes.
  bool poner(EstadoFormato nuevo, bool sigue = false);
  bool poner(Formato nuevo, bool sigue = false) {
    return poner(EstadoFormato{std::move(nuevo), estado_.juego}, sigue);
  }
  // False at the ends.
  bool deshacer() { return pasar(antes_, despues_); }
  bool rehacer() { return pasar(despues_, antes_); }
  bool sePuedeDeshacer() const { return !antes_.empty(); }

 private:
  using Estados = std::vector<EstadoFormato>;
  bool pasar(Estados& desde, Estados& hacia);

  EstadoFormato estado_, guardado_;
  Estados antes_, despues_;
};

}  // namespace tarvo::labels
