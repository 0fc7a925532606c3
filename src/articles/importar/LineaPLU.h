// The records of .PLU files, as pure functions. docs/formatos.md has their columns.
#pragma once

#include <expected>

#include "articles/Articulo.h"

namespace tarvo::importar {

inline constexpr int kLineaLarga = 193, kLineaCorta = 76;

// What a record says of an article; the rest of it is none of its business.
struct RegistroPLU {
  articles::ClaveArticulo clave;
  QString nombre;  // 20 characters as they stand
  int cada = 0;
  qint64 coste = 0;
  articles::Precios precios{};
  int depto = 0;
  int formato = 1;
  bool operator==(const RegistroPLU&) const = default;
};

struct FaltaPLU {
  enum Motivo { Longitud, Cifras, Unidad } motivo = Longitud;
  int columna = 0;  // from 1, of the field at fault; 0 for the whole line
  int ancho = 0;
  bool operator==(const FaltaPLU&) const = default;
};

// A line without its end. Numbers are digits, with blanks round them; a blank field is 0.
std::expected<RegistroPLU, FaltaPLU> leerLineaPLU(QStringView linea);

// The whole number of a field of digits, blanks round them; nothing for anything else.
std::optional<qint64> cifras(QStringView campo);

}  // namespace tarvo::importar
