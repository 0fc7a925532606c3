// The records of .PLU files, as pure functions. docs/formatos.md has their columns.
#pragma once

#include <expected>

#include "articles/Articulo.h"

namespace tarvo::importar {

inline constexpr int kLineaLarga = 193, kLineaCorta = 76;

// The part of an article contained in a record; the rest stays.
struct RegistroPLU {
  articles::ClaveArticulo clave;
  QString nombre;  // 20 characters, unchanged
  int cada = 0;
  qint64 coste = 0;
  articles::Precios precios{};
  int depto = 0;
  int formato = 1;
  bool operator==(const RegistroPLU&) const = default;
};

struct FaltaPLU {
  enum Motivo { Longitud, Cifras, Unidad } motivo = Longitud;
  int columna = 0;  // from 1, of the faulty field; 0 for the whole line
  int ancho = 0;
  bool operator==(const FaltaPLU&) const = default;
};

// Takes a line without its end. Numbers are digits, possibly surrounded by blanks; a blank field is
// 0.
std::expected<RegistroPLU, FaltaPLU> leerLineaPLU(QStringView linea);

// The integer in a field of digits, possibly surrounded by blanks; nothing for anything else.
std::optional<qint64> cifras(QStringView campo);

}  // namespace tarvo::importar
