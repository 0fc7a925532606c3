// The doors of the windows of groups.
#pragma once

#include <functional>
#include <optional>

#include "core/ventanas/marco/Puerta.h"
#include "groups/Edicion.h"

namespace tarvo::groups {

// The editor of a group of scales, or of cash registers. No code: a new group of that section.
// `alGuardar` receives the code under which it was stored.
struct PuertaGrupo {
  std::optional<int> codigo = {};
  int seccion = 1;
  std::function<void(int codigo, bool nuevo)> alGuardar = {};
  QString instancia() const { return codigo ? QString::number(*codigo) : QString(); }
};
struct PuertaEdiGrupo : PuertaGrupo {
  static constexpr QStringView kNombre = u"EdiGrupo";
};
struct PuertaEdiCajas : PuertaGrupo {
  static constexpr QStringView kNombre = u"EdiCajas";
};

// The sheets of a group: its operators, its VAT and its advanced options. `nombre` as it is in the
// editor. They return the whole group, changed.
struct PuertaDeGrupo {
  using Salida = devices::Grupo;
  QString nombre = {};
  devices::Grupo grupo{};
};
// `alDia` takes into the group what the list of operators has stored meanwhile.
struct PuertaEdOpsGpo : PuertaDeGrupo {
  static constexpr QStringView kNombre = u"EdOpsGpo";
  std::function<Resultado<>(devices::Grupo&)> alDia = {};
};
struct PuertaEdIvaDept : PuertaDeGrupo {
  static constexpr QStringView kNombre = u"EdIvaDept";
};
struct PuertaAvanGpo : PuertaDeGrupo {
  static constexpr QStringView kNombre = u"AvanGpo";
};

// The sheets of a machine, changed or not: its message, its options, its cassettes and labels, the
// header of its ticket. `varias`: its group has more machines, which may get the same.
struct MaquinaEditada {
  devices::Miembro maquina;
  bool aTodas = false;
};
struct PuertaDeMaquina {
  using Salida = MaquinaEditada;
  QString nombre = {};  // of the group
  int balanza = 0;      // its place
  bool varias = false;
  devices::Miembro maquina{};
};
struct PuertaEdiPubli : PuertaDeMaquina {
  static constexpr QStringView kNombre = u"EdiPubli";
};
struct PuertaEdiOpsBza : PuertaDeMaquina {
  static constexpr QStringView kNombre = u"EdiOpsBza";
};
struct PuertaEdiCass : PuertaDeMaquina {
  static constexpr QStringView kNombre = u"EdiCass";
};
struct PuertaEdRzSoc : PuertaDeMaquina {
  static constexpr QStringView kNombre = u"EdRzSoc";
};
struct PuertaEdRzBirch : PuertaDeMaquina {
  static constexpr QStringView kNombre = u"EdRzBirch";
};
struct PuertaEdRzSEbony : PuertaDeMaquina {
  static constexpr QStringView kNombre = u"EdRzSEbony";
};

}  // namespace tarvo::groups
