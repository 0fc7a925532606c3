// The doors of the windows of offers and prices.
#pragma once

#include "articles/precios/ParrillaRapida.h"
#include "core/ventanas/marco/Puerta.h"

namespace tarvo::precios {

// New offers, one after another: of the first group there is where the section is 0.
struct PuertaNvaOfr {
  static constexpr QStringView kNombre = u"NvaOfr";
  int seccion = 0, grupo = 0;
};

// How wide a deletion of offers goes; of the offers chosen, and of their articles in all groups.
enum class Borrar { EsteGrupo, Todos };
struct PuertaMsgBorrOf {
  static constexpr QStringView kNombre = u"MsgBorrOf";
  using Salida = Borrar;
  int seleccionadas = 2, todas = 5;
  bool operator==(const PuertaMsgBorrOf&) const = default;
};

// The choices of the fast entry and of the fast change.
struct ConfigAlta {
  std::array<Politica, kCamposFijos> politicas{};
  QString prefijo;
  int precios = articles::kNiveles, tarifas = articles::kTarifas;
  bool operator==(const ConfigAlta&) const = default;
};
struct PuertaCfgFastA {
  static constexpr QStringView kNombre = u"CfgFastA";
  using Salida = ConfigAlta;
  ConfigAlta config = {};
};
struct ConfigCambio {
  std::array<Vista, kColumnasRapidas> vistas{};
  ModoIntro modo = ModoIntro::PLU;
  static ConfigCambio de(const AjustesPrecios& ajustes);
  bool operator==(const ConfigCambio&) const = default;
};
struct PuertaCfgFastPlu {
  static constexpr QStringView kNombre = u"CfgFastPlu";
  using Salida = ConfigCambio;
  ConfigCambio config = {};
};

}  // namespace tarvo::precios
