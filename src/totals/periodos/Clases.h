// The kinds of total and the attributes of each: table, view, export code, columns of Sesiones.
#pragma once

#include <QString>
#include <array>
#include <span>

#include "core/ajustes/Ajustes.h"
#include "core/valores/Tipos.h"

namespace tarvo::totals {

struct ClaseTotal {
  TipoTotal tipo;
  const char16_t* tabla;   // TOTPLU...
  const char16_t* vista;   // QNTPLU...
  const char16_t* codigo;  // of the export files, "01"...
  const char16_t* desde;   // DD_PLU...
  const char16_t* hasta;   // HT_PLU...
  const char16_t* sesion;  // SS_PLU...
  bool conHora;            // rows have a HORA of their own
};

// All six, by number. In languages other than Spanish they end one earlier: see enVigor.
std::span<const ClaseTotal> todasLasClases();
// The kinds from PrimerTotal to UltimoTotal of this language.
std::span<const ClaseTotal> enVigor(const Ajustes& ajustes);
const ClaseTotal& claseDe(TipoTotal tipo);

QString NombreTabla(TipoTotal tipo);
QString NombreVista(TipoTotal tipo);
QString CodigoTotales(TipoTotal tipo);
QString CampoDesde(TipoTotal tipo);
QString CampoHasta(TipoTotal tipo);
QString CampoSesion(TipoTotal tipo);
// The columns that identify a row within a period: GRUPO, CODI and, where the kind has one, HORA;
// those of `alias` where there is one.
QString clavesDe(const ClaseTotal& c, QStringView alias = {});
// The expression for the hour of a row: 0 for a kind without one.
QString horaDe(const ClaseTotal& c, QStringView alias = {});

// The counters of one row: operations or units, grams, amount and discount in minor units of the
// native money.
struct Contadores {
  qint64 CON = 0, PES = 0, IMP = 0, SCO = 0;
  bool operator==(const Contadores&) const = default;
  Contadores& operator+=(const Contadores& c) {
    CON += c.CON, PES += c.PES, IMP += c.IMP, SCO += c.SCO;
    return *this;
  }
  Contadores operator-() const { return {-CON, -PES, -IMP, -SCO}; }
  bool cero() const { return CON == 0 && PES == 0 && IMP == 0 && SCO == 0; }
};

}  // namespace tarvo::totals
