// The store as a window sees it: whether anything in it has changed. Rows are read by the kit (the
// grid, queries in other threads) and by engines, never by a window.
#pragma once

#include "core/dao/Database.h"

namespace tarvo::ventanas {

class Aparte;
class ModeloSql;

class Base {
 public:
  // REQUIRES that the database outlives it.
  explicit Base(dao::Database& db) : db_(db) {}
  // Grows with every row written.
  qint64 cambios() const { return db_.cambios(); }

 private:
  friend class Aparte;
  friend class ModeloSql;
  dao::Database& db_;
};

}  // namespace tarvo::ventanas
