// The doors of the windows of processes.
#pragma once

#include <variant>

#include "core/valores/Fecha.h"
#include "core/ventanas/marco/Puerta.h"

namespace tarvo::automation {

// The user's answer for a parameter; monostate if it was cancelled.
using Contestacion = std::variant<std::monostate, qint64, QString, std::pair<Fecha, Fecha>>;

// The editor of a timetable: of a file, or of a new one, whose name it asks for.
struct PuertaEdiCron {
  static constexpr QStringView kNombre = u"EdiCron";
  QString fichero = {};
  bool operator==(const PuertaEdiCron&) const = default;
};

// Asks for the value of a parameter ("%1" a number, "$a" a text, "#x" a range of days).
struct PuertaEnParMac {
  static constexpr QStringView kNombre = u"EnParMac";
  using Salida = Contestacion;
  QString nombre = QStringLiteral("#x"), pregunta = {};
};

// The process being run: if a file is given, it is started; otherwise the current one.
struct PuertaAutomat {
  static constexpr QStringView kNombre = u"Automat";
  QString proceso = {};
  bool operator==(const PuertaAutomat&) const = default;
};

// The active timetable: if a file is given, it is activated; otherwise the current one.
struct PuertaCronos {
  static constexpr QStringView kNombre = u"Cronos";
  QString horario = {};
  bool operator==(const PuertaCronos&) const = default;
};

// Work on a period still owed by earlier runs.
struct PuertaDebidos {
  static constexpr QStringView kNombre = u"Debidos";
  bool operator==(const PuertaDebidos&) const = default;
};

// The viewer of a trace, given by its path or its name in the shop's folder.
struct PuertaVeoLog {
  static constexpr QStringView kNombre = u"VeoLog";
  QString fichero = QStringLiteral("NOCHE.TZA");
  bool operator==(const PuertaVeoLog&) const = default;
};

}  // namespace tarvo::automation
