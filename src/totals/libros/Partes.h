// Machines that forget in several frames. Which kinds of total a frame clears is told by no manual:
// between the first frame of a zeroing and its end each kind may be cleared or not, and the next
// reading shows it, kind by kind. Rules: docs/libros.md.
#pragma once

#include <optional>
#include <set>

#include "totals/libros/Sesion.h"

namespace tarvo::totals {

struct Parte {
  int grupo = 0, addr = 0, conjunto = 0;  // `conjunto`: the number of the frame
};

// Inside the caller's transaction, as all that follows. This frame is about to go: from now on no
// kind of the machine is known to be whole.
Resultado<> anunciarParte(dao::Database& db, Parte p, qint64 ejecucion, Fecha ahora, qint64 sec);
Resultado<> confirmarParte(dao::Database& db, Parte p, qint64 ejecucion, Fecha cuando, qint64 sec);
// The kind of the machine was cleared: nothing of it is memorised any more that the machine holds.
Resultado<> olvidarClase(dao::Database& db, int grupo, int addr, int clase);
// For a reading that was just noted: by how much its sum is behind that of kinds that were not
// cleared. A machine that is not in the reading has left the group.
Resultado<> anotarPartes(dao::Database& db, int grupo, const ClaseTotal& clase,
                         const Lectura& lectura);

// Machines of the group that were told a part and not the rest.
Resultado<std::set<int>> maquinasAMedias(dao::Database& db, int grupo);
Resultado<std::set<int>> gruposAMedias(dao::Database& db);
// Settles from the readings of the open session which kinds of such machines were cleared. False
// when they don't tell: the group then stays out of this memorisation, and isn't zeroed.
Resultado<bool> resolverPartes(dao::Database& db, const Ajustes& ajustes, const Textos& textos,
                               int grupo, std::vector<Aviso>& avisos);

// What the last whole reading of the grand total says of one machine; nothing when there is none
// since the machine last forgot.
Resultado<std::optional<Contadores>> granTotalLeido(dao::Database& db, int grupo, int addr);

}  // namespace tarvo::totals
