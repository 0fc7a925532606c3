// The doors of the windows of offers and prices.
#pragma once

#include <span>
#include <vector>

#include "articles/precios/ParrillaRapida.h"
#include "core/ventanas/marco/Puerta.h"

namespace tarvo::precios {

// The list whose articles a window works on: the name of the window that moves through them.
inline const QString kListaArticulos = QStringLiteral("BrowPLUs");

// The offers of the groups of a section; 0: the one already shown, or else the first one.
struct PuertaBrowOfer {
  static constexpr QStringView kNombre = u"BrowOfer";
  int seccion = 0;
  bool operator==(const PuertaBrowOfer&) const = default;
};

// The calculator, for the current article of the list and the price at `celda`; without the list,
// starting at the code. `alGuardar`: receives each article that it stores.
struct PuertaCalcPre {
  static constexpr QStringView kNombre = u"CalcPre";
  int seccion = 1;
  qint64 codigo = 0;
  Celda celda = {};
  QString lista = kListaArticulos;
  std::function<void(const articles::Articulo& antes, const articles::Articulo& ahora)> alGuardar =
      {};
};

// Fast entry, and below, fast change; section 0: the one already shown, or else the first one.
struct PuertaFastAlta {
  static constexpr QStringView kNombre = u"FastAlta";
  int seccion = 0;
  QString lista = kListaArticulos;
};
// `alCerrar`: receives, when the window closes, each change that wasn't undone in it, the oldest
// first; those written together, together.
struct CambioHecho {
  QString que;
  articles::Articulo antes, ahora;
};
struct PuertaFastModf {
  static constexpr QStringView kNombre = u"FastModf";
  int seccion = 0;
  QString lista = kListaArticulos;
  std::function<void(std::span<const CambioHecho> juntos)> alCerrar = {};
};

// One change for many articles: those of the codes, or those selected in the window if there are
// none. `subida`: the initial percentage.
struct PuertaCambioLote {
  static constexpr QStringView kNombre = u"CambioLote";
  int seccion = 0;
  std::vector<qint64> codigos = {};
  QString subida = {};
  QString lista = kListaArticulos;
  bool operator==(const PuertaCambioLote&) const = default;
};

// Creates offers, one after another; section 0 means the first group.
struct PuertaNvaOfr {
  static constexpr QStringView kNombre = u"NvaOfr";
  int seccion = 0, grupo = 0;
};

// Asks for the extent of a deletion of offers: the selected offers, or those of their
// articles in all groups. `seleccionadas` and `todas` are the numbers of offers in either case.
enum class Borrar { EsteGrupo, Todos };
struct PuertaMsgBorrOf {
  static constexpr QStringView kNombre = u"MsgBorrOf";
  using Salida = Borrar;
  int seleccionadas = 2, todas = 5;
  bool operator==(const PuertaMsgBorrOf&) const = default;
};

// The options of the fast entry, and below, of the fast change.
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
