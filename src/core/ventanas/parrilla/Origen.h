// The rows that a grid shows: a query in parts, so that the grid can sort, filter, page and sum it.
// Everything is in the SQL dialect of the store; values are bound, never pasted.
#pragma once

#include <QString>
#include <vector>

#include "core/dao/Valor.h"

namespace tarvo::ventanas {

struct Origen {
  QString desde = {};   // what comes after FROM: tables, joins, a view
  QString filtro = {};  // what comes after WHERE, empty for all rows
  // Of `filtro`; of `desde` too, in order, when `clave` is empty.
  std::vector<dao::Valor> parametros = {};
  // A whole number that is different in each row and by which the store finds a row at once: the
  // table's "A.rowid", or a key column. Empty for grouped queries and views: their rows are copied
  // once into a table of the moment, and all else works the same.
  QString clave = {};
  QString agrupado = {};  // what comes after GROUP BY; needs an empty `clave`
  // What a row is for the person, in SQL, when `clave` may change at a refresh; a selection
  // survives by it. Empty: `clave` itself (of copied rows: nothing survives).
  QString identidad = {};
  QString orden =
      {};  // what comes after ORDER BY until the person chooses; empty: as the key comes
};

}  // namespace tarvo::ventanas
