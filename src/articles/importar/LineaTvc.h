// The lines of the former system's article files, as pure functions. docs/formatos.md has their
// columns.
#pragma once

#include <array>

#include "articles/Articulo.h"

namespace tarvo::importar {

// Characters in a line; without the opening stock and the bar code it is still an article.
inline constexpr int kLineaTvc = 76, kLineaTvcMenor = 55;

// The contents of a line. A missing or non-numeric field is 0.
struct RegistroTvc {
  int seccion = 0;
  qint64 codigo = 0;       // columns 3 to 6
  qint64 codigoLargo = 0;  // columns 1 to 6
  QString nombre = {};     // trimmed
  bool porPeso = false;
  qint64 coste = 0, precio = 0;
  int depto = 0;
  qint64 inicial = 0;
  bool operator==(const RegistroTvc&) const = default;
};
RegistroTvc leerLineaTvc(QStringView linea);

// Where the articles go, as chosen by the person.
struct DestinoTvc {
  std::array<QString, 10> prefijos{};                   // Pfjo: of the bar code, by department
  std::optional<int> unaSeccion{};                      // AUnaSecc, Secc
  bool seccionPorTarifa = false;                        // chksectfa; only with unaSeccion
  std::array<QString, articles::kTarifas> secciones{};  // sec: the old section of each tarifa
};

struct SitioTvc {
  articles::ClaveArticulo clave;
  int tarifa = 0;
  bool operator==(const SitioTvc&) const = default;
};
// Nothing for a line whose section belongs to no tarifa.
std::optional<SitioTvc> sitioDe(const RegistroTvc& r, const DestinoTvc& destino);
QString prefijoDe(int depto, const DestinoTvc& destino);

}  // namespace tarvo::importar
