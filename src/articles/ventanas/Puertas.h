// The doors of the windows of the catalogue.
#pragma once

#include <optional>

#include "core/ventanas/marco/Puerta.h"

namespace tarvo::articles {

// The tree of sections and departments; of groups where `grupos`.
struct PuertaBrowGrupos {
  static constexpr QStringView kNombre = u"BrowGrupos";
  bool grupos = false;
  bool operator==(const PuertaBrowGrupos&) const = default;
};

// The list of articles of a section (0: the one that it shows, else the first), of a department or
// of all (0).
struct PuertaBrowPLUs {
  static constexpr QStringView kNombre = u"BrowPLUs";
  int seccion = 0, departamento = 0;
};

// The complete editor of an article: a new one at code 0, the section's first without a code.
// `padre`: the list that hears of it.
struct PuertaXEditPLU {
  static constexpr QStringView kNombre = u"xEditPLU";
  int seccion = 0, departamento = 0;
  std::optional<qint64> codigo = {};
  QString padre = {};
  QString instancia() const {
    return codigo ? QStringLiteral("%1.%2").arg(seccion).arg(*codigo) : QString();
  }
};

// The history of prices of an article, or of a whole section (code 0).
struct PuertaVerPrecios {
  static constexpr QStringView kNombre = u"VerPrecios";
  int seccion = 1;
  qint64 codigo = 0;
};

// The VAT rates of a section, and which of them each department has.
struct PuertaEdIvaSeccs {
  static constexpr QStringView kNombre = u"EdIvaSeccs";
  int seccion = 1;
};

// Whether to send what was changed now; `que` says what was changed.
struct RespuestaEnvio {
  bool si = false, noMas = false;
};
struct PuertaQueHacemos {
  static constexpr QStringView kNombre = u"QueHacemos";
  using Salida = RespuestaEnvio;
  QString que = {};
};

// An operator to be picked: its code.
struct PuertaSelOpe {
  static constexpr QStringView kNombre = u"SelOpe";
  using Salida = int;
};

// The section into which articles are copied or moved. `seccion`: the one shown, which isn't
// offered.
struct PuertaEntNmSc {
  static constexpr QStringView kNombre = u"EntNmSc";
  using Salida = int;
  bool mover = false;
  int seccion = 0, cuantos = 1;
};

}  // namespace tarvo::articles
