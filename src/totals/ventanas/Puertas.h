// The doors of the windows of totals.
#pragma once

#include <optional>
#include <vector>

#include "core/valores/Fecha.h"
#include "core/ventanas/marco/Puerta.h"
#include "totals/periodos/Clases.h"
#include "totals/ventanas/DetalleSesion.h"

namespace tarvo::totals {

// The span of the rows that are shown; nothing for an open end. `mision`: the kind of period, whose
// months and years are stepped through.
struct IntervaloFila {
  std::optional<Fecha> desde, hasta;
};
struct PuertaImpUnaFila {
  static constexpr QStringView kNombre = u"ImpUnaFila";
  using Salida = IntervaloFila;
  int mision = 1;
  QString titulo = {};
};

// One period, new or changed, and totals keyed in by hand; its LINK. `tipo`: what a new one begins
// with.
struct PuertaEditIntv {
  static constexpr QStringView kNombre = u"EditIntv";
  using Salida = qint64;
  std::optional<qint64> link = {};
  int tipo = 1;
};

// What was received, and where it is to go; what is chosen there.
struct PuertaFormDetalles {
  static constexpr QStringView kNombre = u"FormDetalles";
  using Salida = DetalleSesion;
  DetalleSesion detalle = {};
};

// The session: what was received, to be memorised or forgotten.
struct PuertaCerrSes {
  static constexpr QStringView kNombre = u"CerrSes";
  bool operator==(const PuertaCerrSes&) const = default;
};

// Machines of which a person must say whether they were zeroed.
struct PuertaDudasCero {
  static constexpr QStringView kNombre = u"DudasCero";
  bool operator==(const PuertaDudasCero&) const = default;
};

// The list of periods; `link`: the one that is chosen in it, 0 for none.
struct PuertaVerTot {
  static constexpr QStringView kNombre = u"VerTot";
  qint64 link = 0;
  bool operator==(const PuertaVerTot&) const = default;
};

// Whether these periods are to be added up; accepted, there is a period to add them to.
struct PuertaConfirSum {
  static constexpr QStringView kNombre = u"ConfirSum";
  std::vector<qint64> links = {};
};

// Whether to go on with a period that isn't to be taken off the stock.
struct PuertaNoStkBle {
  static constexpr QStringView kNombre = u"NoStkBle";
};

// The rows of one period and kind; `link` 0: of the most recent one. Amounts in the preferred
// currency, or in `moneda`. `grupo`: of that one alone, 0 for all.
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

// One code across time; without it what sold most in the most recent day. `seccion`: of the kinds
// whose codes are a section's.
struct PuertaVerFils {
  static constexpr QStringView kNombre = u"VerFils";
  TipoTotal clase = TipoTotal::PLUs;
  int seccion = 0;
  std::optional<qint64> codigo = {};
  std::optional<int> moneda = {};
};

// Periods to a file, in this order; without any the most recent one.
struct PuertaXporTot {
  static constexpr QStringView kNombre = u"XporTot";
  std::vector<qint64> links = {};
};
// Periods from files of a folder; empty: the shop's.
struct PuertaImpTot {
  static constexpr QStringView kNombre = u"ImpTot";
  QString carpeta = {};
};

}  // namespace tarvo::totals
