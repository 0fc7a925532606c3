// The counters of an article in each warehouse, for the editor.
#pragma once

#include "articles/Articulo.h"
#include "core/dao/Database.h"

namespace tarvo::articles {

struct Existencia {
  int almacen = 0;
  QString nombre;
  // Grams, or units for an article sold by unit.
  qint64 inicial = 0, compra = 0, venta = 0, entrada = 0, salida = 0, merma = 0;
  bool operator==(const Existencia&) const = default;
  qint64 actual() const { return inicial + compra + entrada - venta - salida - merma; }
  // Money: the present stock, at the cost of a selling unit. Gram counts are divided by 1000.
  qint64 valoracion(int cada, qint64 coste) const;
};

// One for each warehouse, zeros if it has no counters for the article.
Resultado<std::vector<Existencia>> leerExistencias(dao::Database& db, ClaveArticulo clave);
// Writes only the counters that differ from `antes`: a machine may sell meanwhile. A warehouse
// without a row of the article gets one. REQUIRES that the article exists.
Resultado<> ponerExistencias(dao::Database& db, ClaveArticulo clave,
                             std::span<const Existencia> antes, std::span<const Existencia> ahora);

}  // namespace tarvo::articles
