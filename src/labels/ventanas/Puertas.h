// The doors of the windows of labels.
#pragma once

#include <array>
#include <optional>

#include "core/ventanas/marco/Puerta.h"
#include "labels/Formato.h"

namespace tarvo::labels {

// The editor of label formats.
struct PuertaEdiEtqu {
  static constexpr QStringView kNombre = u"EdiEtqu";
  bool operator==(const PuertaEdiEtqu&) const = default;
};

// The properties of a field. `resto`: the other fields of its format. `textos`: the 40 texts, from
// 1 on.
struct PuertaEdiCampo {
  static constexpr QStringView kNombre = u"EdiCampo";
  using Salida = CampoEtiqueta;
  CampoEtiqueta campo = {};
  Formato resto = {};
  std::array<QString, 41> textos = {};
};

// Asks for a text set, whose texts can be edited there. `juego`: the present one; none for the
// shop's own texts.
struct JuegoElegido {
  std::optional<QString> juego = {};
};
struct PuertaEdiTxtFi {
  static constexpr QStringView kNombre = u"EdiTxtFi";
  using Salida = JuegoElegido;
  std::optional<QString> juego = {};
};

// Asks for the number of a text of a set.
struct PuertaTxtFijos {
  static constexpr QStringView kNombre = u"TxtFijos";
  using Salida = int;
  std::optional<QString> juego = {};
  int numero = 1;
};

// What the printer makes of a format with a real article.
struct PuertaVistaEtq {
  static constexpr QStringView kNombre = u"VistaEtq";
  QString nombre = {};
  Formato formato = {};
  std::optional<QString> juego = {};
};

}  // namespace tarvo::labels
