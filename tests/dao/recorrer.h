#pragma once

#include <stdexcept>

#include "core/dao/Recordset.h"

// The next row; a failure ends the test, which would otherwise never leave its loop.
inline void avanzar(tarvo::dao::Recordset& rs) {
  if (const auto r = rs.MoveNext(); !r) throw std::runtime_error(r.error().texto.toStdString());
}
