// The kinds of total and the attributes of each: table, view, export code, columns of Sesiones.
#pragma once

#include <QString>
#include <array>
#include <span>

#include "core/ajustes/Ajustes.h"

namespace tarvo::totals {

inline constexpr int kPLUs = 16, kGranTotal = 17, kOperadores = 18, kDepartamentos = 19,
                     kHorario = 20, kOperHora = 21;

struct ClaseTotal {
  int numero;
  const char16_t* tabla;   // TOTPLU...
  const char16_t* vista;   // QNTPLU...
  const char16_t* codigo;  // of the export files, "01"...
  const char16_t* desde;   // DD_PLU...
  const char16_t* hasta;   // HT_PLU...
  const char16_t* sesion;  // SS_PLU...
  bool conHora;            // rows have a HORA of their own
};

// All six, PrimerTotal first. In languages other than Spanish they end one earlier: see enVigor.
std::span<const ClaseTotal> todasLasClases();
// The kinds from PrimerTotal to UltimoTotal of this language.
std::span<const ClaseTotal> enVigor(const Ajustes& ajustes);
// The kind with that number, or null.
const ClaseTotal* clase(int numero);

QString NombreTabla(int numero);  // empty for a number of no kind
QString NombreVista(int numero);
QString CodigoTotales(int numero);
QString CampoDesde(int numero);
QString CampoHasta(int numero);
QString CampoSesion(int numero);

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
