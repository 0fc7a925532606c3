// Commercial hours and calendar periods: how a span of time becomes a day, a week, a month, a year
// or an interval. Weekdays count from Monday. Rules: docs/libros.md.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "core/ajustes/Ajustes.h"
#include "core/textos/Textos.h"

namespace tarvo::totals {

inline constexpr int kDiario = 1, kSemanal = 2, kMensual = 3, kAnual = 4, kOtros = 5;

struct Jornada {  // fractions of a day
  double abre = 0, cierra = 0;
  bool operator==(const Jornada&) const = default;
};
// Seven days, Monday first; nothing for a closed day.
using Horario = std::array<std::optional<Jornada>, 7>;

// The group's own hours from its HORARIO text; nothing when the text is empty (then the settings
// apply).
std::optional<Horario> LeerHorario(const QString& texto);
QString EscribirHorario(const std::optional<Horario>& horario);

struct Periodo {
  int tipo = kOtros;
  Fecha desde, hasta;
  bool operator==(const Periodo&) const = default;
  auto operator<=>(const Periodo&) const = default;
  bool solapa(const Periodo& otro) const {
    return desde <= otro.desde ? hasta > otro.desde : desde < otro.hasta;
  }
};

// Full limits of the period of a calendar kind that contains `desde`; for any other kind the dates
// stay.
Periodo LimitesPeriodo(int tipo, Fecha desde, Fecha hasta);

struct AjustesPeriodos;

class Calendario {
 public:
  explicit Calendario(const Ajustes& ajustes);
  // The core of a working day as (x, y), fractions of a day.
  Jornada VentanaHorario(const std::optional<Jornada>& jornada) const;
  bool EnHorario(Fecha instante, const std::optional<Horario>& horario) const;
  // The first day of the period of this kind that contains all working time of the span, if there
  // is one.
  std::optional<Fecha> IntervaloDominante(int tipo, Fecha desde, Fecha hasta,
                                          const std::optional<Horario>& horario) const;
  // Number of stretches of working time in the span, whole or partial.
  int Jornadas(Fecha desde, Fecha hasta, const std::optional<Horario>& horario) const;
  Periodo DeterminarPeriodo(Fecha desde, Fecha hasta, const std::optional<Horario>& horario) const;

 private:
  const AjustesPeriodos& a_;
};

QString NombreTipoPeriodo(int tipo);
QString FormatoPeriodo(int tipo, Fecha fecha);  // the date as a period of this kind shows it
QString TextoPeriodo(const Periodo& p);
// In words, inside a sentence or after a colon.
QString DecirPeriodo(const Periodo& p, const Textos& textos);
QString TextoPeriodos(const std::vector<Periodo>& periodos);  // separated by commas

}  // namespace tarvo::totals
