// The doors of the windows of the catalogue.
#pragma once

#include <functional>
#include <optional>

#include "core/ventanas/marco/Puerta.h"

namespace tarvo::articles {

// The tree of sections and departments; that of sections and groups, if `grupos`, is another
// window.
struct PuertaBrowGrupos {
  static constexpr QStringView kNombre = u"BrowGrupos";
  bool grupos = false;
  QString instancia() const { return grupos ? QStringLiteral("grupos") : QString(); }
  bool operator==(const PuertaBrowGrupos&) const = default;
};

// The list of articles of a section (0: the one already shown, or else the first one) and a
// department (0: all).
struct PuertaBrowPLUs {
  static constexpr QStringView kNombre = u"BrowPLUs";
  int seccion = 0, departamento = 0;
  bool operator==(const PuertaBrowPLUs&) const = default;
};

struct FichaArticulo;

// The complete editor of an article. Code 0: a new one; no code: the section's first one. `padre`:
// the list to be refreshed after a change. `alGuardar`: receives what was saved, as it is stored; a
// new article if `antes` is one.
struct PuertaXEditPLU {
  static constexpr QStringView kNombre = u"xEditPLU";
  int seccion = 0, departamento = 0;
  std::optional<qint64> codigo = {};
  QString padre = {};
  std::function<void(const FichaArticulo& antes, const FichaArticulo& ahora)> alGuardar = {};
  QString instancia() const {
    return codigo ? QStringLiteral("%1.%2").arg(seccion).arg(*codigo) : QString();
  }
};

// The history of the prices of an article, or of a whole section (code 0).
struct PuertaVerPrecios {
  static constexpr QStringView kNombre = u"VerPrecios";
  int seccion = 1;
  qint64 codigo = 0;
};

// The VAT rates of a section, and the rate of each of its departments.
struct PuertaEdIvaSeccs {
  static constexpr QStringView kNombre = u"EdIvaSeccs";
  int seccion = 1;
};

// Asks whether to send the changes now; `que` names them. No answer: the user goes back.
struct RespuestaEnvio {
  bool si = false, noMas = false;
};
struct PuertaQueHacemos {
  static constexpr QStringView kNombre = u"QueHacemos";
  using Salida = RespuestaEnvio;
  QString que = {};
};

// The operators.
struct PuertaBrowOper {
  static constexpr QStringView kNombre = u"BrowOper";
  bool operator==(const PuertaBrowOper&) const = default;
};

// Asks for an operator and returns its code.
struct PuertaSelOpe {
  static constexpr QStringView kNombre = u"SelOpe";
  using Salida = int;
};

// Asks for the section to which articles are copied or moved. `seccion`: the current one, which
// isn't offered.
struct PuertaEntNmSc {
  static constexpr QStringView kNombre = u"EntNmSc";
  using Salida = int;
  bool mover = false;
  int seccion = 0, cuantos = 1;
};

}  // namespace tarvo::articles
