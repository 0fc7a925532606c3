// Which articles a sending carries. Each question is one query, however many articles there are.
#pragma once

#include <limits>

#include "comm/envios/Lector.h"

namespace tarvo::envios {

struct Rango {
  qint64 desde = 0, hasta = 9'999'999;
  // The whole range has those that no record takes, too, so that they are named.
  qint64 tope() const {
    return hasta < maquinas::kUltimoArticuloVek ? hasta : std::numeric_limits<qint64>::max();
  }
  bool operator==(const Rango&) const = default;
};

// Every article of the range. The two system articles are never sent.
Resultado<std::vector<qint64>> todosLosArticulos(dao::Database& db, const Destino& destino,
                                                 Rango rango);

// SaltarSinCambios: those that the group doesn't hold as they stand, and those whose offer began,
// ended, changed or was taken back since the group last heard of it.
Resultado<std::vector<qint64>> SaltarSinCambios(dao::Database& db, const Destino& destino,
                                                Rango rango, Fecha ahora);

// What the group must delete: the articles that it is known to hold, marked for deletion, whose
// code its section doesn't have.
Resultado<std::vector<qint64>> articulosPorBorrar(dao::Database& db, const Destino& destino);

// What a machine that can't be compared was once told to delete, and may have again: of the range,
// those that the section doesn't have.
Resultado<std::vector<qint64>> borradosAntes(dao::Database& db, const Destino& destino,
                                             Rango rango);

// How many articles a machine that can't delete one alone was given, and should have no more.
Resultado<qint64> articulosDeSobra(dao::Database& db, const Destino& destino);

// Moves those that the group has refused already to the end, in their order.
Resultado<> rechazadosAlFinal(dao::Database& db, const Destino& destino,
                              std::vector<qint64>& codigos);

}  // namespace tarvo::envios
