// The doors of the windows of totals.
#pragma once

#include <optional>
#include <vector>

#include "core/valores/Fecha.h"
#include "core/ventanas/marco/Puerta.h"
#include "totals/periodos/Clases.h"
#include "totals/periodos/Manuales.h"
#include "totals/ventanas/DetalleSesion.h"

namespace tarvo::totals {

// The time span of the rows shown; nothing for an open end. `mision`: the kind of period, which
// makes the dates advance by months or years.
struct IntervaloFila {
  std::optional<Fecha> desde, hasta;
};
struct PuertaImpUnaFila {
  static constexpr QStringView kNombre = u"ImpUnaFila";
  using Salida = IntervaloFila;
  int mision = 1;
  QString titulo = {};
};

// Creates or changes a period, with totals keyed in by hand; returns what was saved. `tipo`: the
// initial kind of a new one.
struct PuertaEditIntv {
  static constexpr QStringView kNombre = u"EditIntv";
  using Salida = Guardado;
  std::optional<qint64> link = {};
  int tipo = 1;
};

// The readings received and their destination; returns the choices made.
struct PuertaFormDetalles {
  static constexpr QStringView kNombre = u"FormDetalles";
  using Salida = DetalleSesion;
  DetalleSesion detalle = {};
};

// The session: the readings received, to be memorised or forgotten. `alSalir`: opened by a window
// that is being closed, where Return leaves the session as it is and accepts; given up with a full
// inbox, that window stays.
struct PuertaCerrSes {
  static constexpr QStringView kNombre = u"CerrSes";
  bool alSalir = false;
  bool olvidar = false;  // asks at once whether to forget it, and closes if not
  bool operator==(const PuertaCerrSes&) const = default;
};

// Machines for which the user must state whether they were zeroed.
struct PuertaDudasCero {
  static constexpr QStringView kNombre = u"DudasCero";
  bool operator==(const PuertaDudasCero&) const = default;
};

// The list of periods; `link`: the one to be selected, 0 for none.
struct PuertaVerTot {
  static constexpr QStringView kNombre = u"VerTot";
  qint64 link = 0;
  bool operator==(const PuertaVerTot&) const = default;
};

// Asks whether to add up these periods. If accepted, the period that receives them exists.
struct PuertaConfirSum {
  static constexpr QStringView kNombre = u"ConfirSum";
  std::vector<qint64> links = {};
};

// Asks whether to go on with a period that isn't meant to be deducted from stock.
struct PuertaNoStkBle {
  static constexpr QStringView kNombre = u"NoStkBle";
};

// The rows of a kind in one period; `link` 0: the most recent one. Amounts in `moneda`, or the
// preferred currency. `grupo`: only that one, 0 for all.
struct PuertaVerCols {
  static constexpr QStringView kNombre = u"VerCols";
  qint64 link = 0;
  TipoTotal clase = TipoTotal::GranTotal;
  std::optional<int> moneda = {};
  int grupo = 0;
  bool operator==(const PuertaVerCols&) const = default;
  QString instancia() const { return link > 0 ? QString::number(link) : QString(); }
};
// The same for operators by hour.
struct PuertaV_ColOpH {
  static constexpr QStringView kNombre = u"V_ColOpH";
  qint64 link = 0;
  std::optional<int> moneda = {};
  QString instancia() const { return link > 0 ? QString::number(link) : QString(); }
};

// One code across periods; without a code, the best seller of the most recent day. `seccion`: for
// the kinds whose codes belong to a section.
struct PuertaVerFils {
  static constexpr QStringView kNombre = u"VerFils";
  TipoTotal clase = TipoTotal::PLUs;
  int seccion = 0;
  std::optional<qint64> codigo = {};
  std::optional<int> moneda = {};
};

// Exports periods to a file, in this order; if empty, the most recent one.
struct PuertaXporTot {
  static constexpr QStringView kNombre = u"XporTot";
  std::vector<qint64> links = {};
};
// Imports periods from the files of a folder; if empty, the shop's folder.
struct PuertaImpTot {
  static constexpr QStringView kNombre = u"ImpTot";
  QString carpeta = {};
};

}  // namespace tarvo::totals
