// Rows of MovsAlm: moving a counter, and deleting rows with nothing but zeros. Internal to the
// room.
#pragma once

#include <array>

#include "core/dao/Database.h"

namespace tarvo::stock {

// The six counters in the order of ItmAlm::Contador, as columns.
inline constexpr std::array<const char16_t*, 6> kContadores{u"Inicial", u"Entrada", u"Compra",
                                                            u"Salida",  u"Venta",   u"Merma"};

struct Casilla {
  int almacen = 0, seccion = 0;
  qint64 codigo = 0;
};

// counter = counter + cantidad, in one statement; a missing row is created.
Resultado<> moverContador(dao::Database& db, const Casilla& donde, int contador, qint64 cantidad);
// Sets the counter to `valor`; a missing row is created. Returns the number of changed rows.
Resultado<qint64> fijarContador(dao::Database& db, const Casilla& donde, int contador,
                                qint64 valor);
// Deletes rows with six zeros, in one warehouse or (-1) in all.
Resultado<> borrarCeros(dao::Database& db, int almacen = -1);

}  // namespace tarvo::stock
