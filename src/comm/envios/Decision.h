// The articles that a sending carries. Each question is one query, however many articles there are.
#pragma once

#include <limits>

#include "comm/envios/Lector.h"

namespace tarvo::envios {

struct Rango {
  qint64 desde = 0, hasta = 9'999'999;
  // The whole range also includes numbers that don't fit any record, so that they are reported.
  qint64 tope() const {
    return hasta < maquinas::kUltimoArticuloVek ? hasta : std::numeric_limits<qint64>::max();
  }
  bool operator==(const Rango&) const = default;
};

// Every article of the range. The two system articles are never sent.
Resultado<std::vector<qint64>> todosLosArticulos(dao::Database& db, const Destino& destino,
                                                 Rango rango);

// SaltarSinCambios: those that the group doesn't hold in their present form, and those whose offer
// began, ended, changed or was withdrawn since it was last sent to the group.
Resultado<std::vector<qint64>> SaltarSinCambios(dao::Database& db, const Destino& destino,
                                                Rango rango, Fecha ahora);

// The articles that the group must delete: those that it is known to hold, marked for deletion,
// with no article of their code in its section.
Resultado<std::vector<qint64>> articulosPorBorrar(dao::Database& db, const Destino& destino);

// The articles that a machine without comparison was once told to delete and may have again: of the
// range, those missing from the section.
Resultado<std::vector<qint64>> borradosAntes(dao::Database& db, const Destino& destino,
                                             Rango rango);

// The number of articles sent to a machine that can't delete single ones, and no longer due there.
Resultado<qint64> articulosDeSobra(dao::Database& db, const Destino& destino);

// Moves those that the group has already refused to the end, in their order.
Resultado<> rechazadosAlFinal(dao::Database& db, const Destino& destino,
                              std::vector<qint64>& codigos);

}  // namespace tarvo::envios
