// The doors of the windows of processes.
#pragma once

#include <variant>

#include "core/valores/Fecha.h"
#include "core/ventanas/marco/Puerta.h"

namespace tarvo::automation {

// What a person answers for a parameter; nothing when he cancelled.
using Contestacion = std::variant<std::monostate, qint64, QString, std::pair<Fecha, Fecha>>;

// The editor of a timetable: of a file, or of a new one, whose name is asked for.
struct PuertaEdiCron {
  static constexpr QStringView kNombre = u"EdiCron";
  QString fichero = {};
};

// The value of a parameter ("%1" a number, "$a" a text, "#x" a range of days).
struct PuertaEnParMac {
  static constexpr QStringView kNombre = u"EnParMac";
  using Salida = Contestacion;
  QString nombre = QStringLiteral("#x"), pregunta = {};
};

}  // namespace tarvo::automation
