// The rows of a list: a query in parts, so that the grid that shows it can sort, filter, page and
// sum it. Engines write it, windows pass it on. Everything is in the SQL dialect of the store;
// values are bound, never pasted.
#pragma once

#include <QString>
#include <vector>

#include "core/dao/Valor.h"

namespace tarvo::dao {

struct Origen {
  QString desde = {};   // the part after FROM: tables, joins, a view
  QString filtro = {};  // the part after WHERE; empty for all rows
  // Of `filtro`; of `desde` too, in order, if `clave` is empty.
  std::vector<Valor> parametros = {};
  // An integer that is unique in each row and gives direct access in the store: the table's
  // "A.rowid", or a key column. Empty for grouped queries and views: their rows are copied once
  // into a temporary table, and everything else works the same.
  QString clave = {};
  QString agrupado = {};  // the part after GROUP BY; requires an empty `clave`
  // What identifies a row for the user, in SQL, if `clave` may change at a refresh; it preserves
  // the selection. Empty: `clave` itself (for copied rows, nothing is preserved).
  QString identidad = {};
  QString orden = {};  // the part after ORDER BY until the user sorts; empty: the order of the keys
};

}  // namespace tarvo::dao
