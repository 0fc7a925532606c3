// Where what was found meets what the shop has: the channels that the ports get, and the machines
// that a group has already.
#pragma once

#include <optional>
#include <set>
#include <span>

#include "comm/cables/AjustesCables.h"
#include "comm/exploracion/Hallazgo.h"
#include "core/ajustes/Ajustes.h"
#include "groups/Grupos.h"

namespace tarvo::exploracion {

struct GrupoQueEsta {
  int codigo = 0;
  QString clave;  // of its access, as in Accesos.h; empty for none that can be explored
  int canal = 0;  // of a direct cable, from 1
  std::optional<TipoGrupo> tipo;
  int nodo = 0;
  std::set<int> numeros = {};  // of its machines
};
Resultado<std::vector<GrupoQueEsta>> gruposQueEstan(groups::Grupos& grupos, const Ajustes& ajustes);
// The code of the group that has these machines. Stations of one line can't be told apart by their
// groups, so any group of that line has them; nodes can.
std::optional<int> quienLaTiene(std::span<const GrupoQueEsta> grupos, const Hallazgo& hallazgo,
                                const GrupoHallado& hallado);

// By finding and group of it: a group of the shop.
using YaEstan = std::vector<std::vector<std::optional<int>>>;
YaEstan quienesLasTienen(std::span<const GrupoQueEsta> grupos, std::span<const Hallazgo> hallazgos);
// The same with the groups that are what was found: the only one with that access and with exactly
// those scales. A group is that of one finding.
YaEstan quienesSonLosMismos(std::span<const GrupoQueEsta> grupos,
                            std::span<const Hallazgo> hallazgos);

// Which machines of a group didn't answer.
struct Silencio {
  enum class Por { NoSeBuscan, SinExplorar, Callan } por = Por::Callan;
  std::vector<int> numeros = {};  // all of them, but for Callan
};
Silencio silencioDe(const GrupoQueEsta& grupo, std::span<const Hallazgo> hallazgos);

// The uses of the channels. One that isn't in use is free, unless a group is on it, or another
// channel with its port is in use.
class Canales {
 public:
  // REQUIRES that both outlive it.
  Canales(enlace::AjustesCables& cables, std::span<const GrupoQueEsta> grupos)
      : cables_(cables), grupos_(grupos) {}
  // Uses the channels as they were found; unless `entera`, only those where something was
  // recognised. A device without a channel at which something was gets a free one, whose number its
  // finding then has; 0 when none is.
  void usar(std::span<Hallazgo> hallazgos, bool entera);
  // One channel at least is used for TCP/IP; false when there is none, and none is free.
  bool asegurarTcp();

 private:
  enlace::ParamCanal* libre();
  enlace::AjustesCables& cables_;
  std::span<const GrupoQueEsta> grupos_;
};

}  // namespace tarvo::exploracion
