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
  bool operator==(const PuertaEdiCron&) const = default;
};

// The value of a parameter ("%1" a number, "$a" a text, "#x" a range of days).
struct PuertaEnParMac {
  static constexpr QStringView kNombre = u"EnParMac";
  using Salida = Contestacion;
  QString nombre = QStringLiteral("#x"), pregunta = {};
};

// The process that runs: of a file, which is started, or the one under way.
struct PuertaAutomat {
  static constexpr QStringView kNombre = u"Automat";
  QString proceso = {};
  bool operator==(const PuertaAutomat&) const = default;
};

// The timetable that is active: of a file, which is activated, or the one that is.
struct PuertaCronos {
  static constexpr QStringView kNombre = u"Cronos";
  QString horario = {};
  bool operator==(const PuertaCronos&) const = default;
};

// What earlier runs still owe of a period.
struct PuertaDebidos {
  static constexpr QStringView kNombre = u"Debidos";
  bool operator==(const PuertaDebidos&) const = default;
};

// A trace; its path, or its name in the shop's folder.
struct PuertaVeoLog {
  static constexpr QStringView kNombre = u"VeoLog";
  QString fichero = QStringLiteral("NOCHE.TZA");
  bool operator==(const PuertaVeoLog&) const = default;
};

}  // namespace tarvo::automation
