// The doors of the windows of offers and prices.
#pragma once

#include <vector>

#include "articles/precios/ParrillaRapida.h"
#include "core/ventanas/marco/Puerta.h"

namespace tarvo::precios {

// The list over whose articles a window works: the name of the window that walks them.
inline const QString kListaArticulos = QStringLiteral("BrowPLUs");

// The offers of the groups of a section; 0 for the one that it shows, else the first.
struct PuertaBrowOfer {
  static constexpr QStringView kNombre = u"BrowOfer";
  int seccion = 0;
};

// The calculator, over the article in hand of the list and from that of its prices; without the
// list from the code on.
struct PuertaCalcPre {
  static constexpr QStringView kNombre = u"CalcPre";
  int seccion = 1;
  qint64 codigo = 0;
  Celda celda = {};
  QString lista = kListaArticulos;
};

// Fast entry and fast change; section 0 is the one that they show, else the first.
struct PuertaFastAlta {
  static constexpr QStringView kNombre = u"FastAlta";
  int seccion = 0;
  QString lista = kListaArticulos;
};
struct PuertaFastModf {
  static constexpr QStringView kNombre = u"FastModf";
  int seccion = 0;
  QString lista = kListaArticulos;
};

// One change for many articles: those of the codes, or what is chosen there. `subida`: the
// percentage that it begins with.
struct PuertaCambioLote {
  static constexpr QStringView kNombre = u"CambioLote";
  int seccion = 0;
  std::vector<qint64> codigos = {};
  QString subida = {};
  QString lista = kListaArticulos;
};

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
