// The header lines of a ticket as a person edits them: those above the ticket's body, then those
// below it. They are stored as "C:f:text" and "P:f:text", a line each.
#pragma once

#include <QString>
#include <vector>

namespace tarvo::devices {

inline constexpr int kFuentesTicket = 5;

struct Cabecera {
  struct Linea {
    int fuente = 0;  // 0 to 4
    QString texto = {};
    bool operator==(const Linea&) const = default;
  };
  std::vector<Linea> lineas;
  int arriba = 0;  // how many of them are above
  bool operator==(const Cabecera&) const = default;
};

// Missing lines are empty, and lines beyond `cuantas` are left out; an unreadable font is 0.
Cabecera leerCabecera(const QString& texto, int cuantas);
QString escribirCabecera(const Cabecera& cabecera);

}  // namespace tarvo::devices
