// Machines that forget in several frames, each of which clears one set of counters. What was told
// to each set is noted by itself, so that a zeroing that broke off between two frames is seen
// through. Rules: docs/libros.md.
#pragma once

#include <optional>
#include <set>

#include "totals/libros/Sesion.h"

namespace tarvo::totals {

inline constexpr int kConjuntos = 3;
// The set of a register's counters, in the order of its frames, that a kind of total lives in.
int conjuntoDe(int clase);

struct Parte {
  int grupo = 0, addr = 0, conjunto = 0;
};

// Inside the caller's transaction, as all that follows. The frame of this set is about to go.
Resultado<> anunciarParte(dao::Database& db, Parte p, qint64 ejecucion, Fecha ahora, qint64 sec);
// The machine has confirmed it; its counters of the set count afresh since `cuando`.
Resultado<> confirmarParte(dao::Database& db, Parte p, qint64 ejecucion, Fecha cuando, qint64 sec);
// Nothing of the set is memorised any more that the machine still holds, but for the kinds in
// `menos` (numbers parted by commas).
Resultado<> olvidarParte(dao::Database& db, Parte p, const QString& menos);
// For a reading that was just noted: since when it counts, and by how much its sum is behind that
// of sets that were not cleared.
// A machine that is not in the reading has left the group.
Resultado<> anotarPartes(dao::Database& db, int grupo, const ClaseTotal& clase,
                         const Lectura& lectura);

// Groups of which some machine has forgotten a part, or was about to, and not the rest.
Resultado<std::set<int>> gruposAMedias(dao::Database& db);
// Settles from the readings of the open session which announced sets of such a group were cleared.
// False when they don't tell: the group then stays out of this memorisation, and isn't zeroed.
Resultado<bool> resolverPartes(dao::Database& db, const Ajustes& ajustes, const Textos& textos,
                               int grupo, std::vector<Aviso>& avisos);

// What the last whole reading of the grand total says of one machine; nothing when there is none
// since the machine last forgot.
Resultado<std::optional<Contadores>> granTotalLeido(dao::Database& db, int grupo, int addr);

}  // namespace tarvo::totals
