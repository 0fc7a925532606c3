// The fields of an article that a table can fill, and their names in headings.
#pragma once

#include <QStringList>
#include <optional>
#include <vector>

#include "articles/Articulo.h"
#include "articles/importar/Tabla.h"
#include "core/textos/Textos.h"

namespace tarvo::importar {

enum class Campo {
  Seccion,
  Codigo,
  Nombre,
  Cada,
  Modificable,
  Minimo,
  Hasta1,
  Hasta2,
  Depto,
  Barras,
  PfxBar,
  CodBarExt,
  Descto,
  Formato,
  TextoEtq,
  Numdias1,
  Numdias2,
  StkMax,
  StkMin,
  Coste,
  Precio  // and those after it: level by level, tarifa within a level
};
inline constexpr int kCampos =
    static_cast<int>(Campo::Precio) + articles::kNiveles * articles::kTarifas;

inline Campo campoPrecio(int nivel, int tarifa) {
  return static_cast<Campo>(static_cast<int>(Campo::Precio) + nivel * articles::kTarifas + tarifa);
}
inline bool esPrecio(Campo c) {
  return c >= Campo::Precio;
}
bool esDecimal(Campo c);  // money, a quantity or a percentage

QString titulo(Campo campo, const Textos& textos);

// The field filled by each column.
using Emparejado = std::vector<std::optional<Campo>>;

struct Titulos {
  int fila = -1;  // of the table; -1 when no row has a known heading
  Emparejado columnas;
};
// The row of headings among the first rows, and the fields of its columns: synonyms count, accents
// and case are ignored. No field twice.
Titulos emparejar(const Tabla& tabla, const Textos& textos);

}  // namespace tarvo::importar
