// Machines that forget in several frames. No manual tells which kinds of total a frame clears:
// between the first frame of a zeroing and its end each kind may or may not be cleared, and the
// next reading shows it, kind by kind. Rules: docs/libros.md.
#pragma once

#include <optional>
#include <set>

#include "totals/libros/Sesion.h"

namespace tarvo::totals {

struct Parte {
  int grupo = 0, addr = 0, conjunto = 0;  // `conjunto`: the number of the frame
};

// Inside the caller's transaction, like all that follows. From now on no kind of the machine is
// known to be whole.
Resultado<> ponerEnDuda(dao::Database& db, int grupo, int addr);
// The same, as this frame is about to be sent.
Resultado<> anunciarParte(dao::Database& db, Parte p, qint64 ejecucion, Fecha ahora, qint64 sec);
Resultado<> confirmarParte(dao::Database& db, Parte p, qint64 ejecucion, Fecha cuando, qint64 sec);
// The machine confirmed its frames and still holds sales: no confirmation counts.
// `intacta`: a kind that was seen to be whole.
Resultado<> desmentirPartes(dao::Database& db, int grupo, int addr,
                            std::optional<TipoTotal> intacta);
// The machine's counters of this kind were cleared: it no longer holds anything memorised of it.
Resultado<> olvidarClase(dao::Database& db, int grupo, int addr, TipoTotal clase);
// The whole machine counts afresh: nothing is known to be half done any more.
Resultado<> olvidarPartes(dao::Database& db, int grupo, int addr);
// For a reading just noted: how far its sum is below that of the kinds that were not cleared. A
// machine missing from the reading has left the group.
Resultado<> anotarPartes(dao::Database& db, int grupo, const ClaseTotal& clase,
                         const Lectura& lectura);

// Machines of the group that were told only a part.
Resultado<std::set<int>> maquinasAMedias(dao::Database& db, int grupo);
Resultado<std::set<int>> gruposAMedias(dao::Database& db);
// Settles from the open session's readings which kinds of such machines were cleared. False when
// they don't show it: the group then stays out of this memorisation, and isn't zeroed.
Resultado<bool> resolverPartes(dao::Database& db, const Ajustes& ajustes, const Textos& textos,
                               int grupo, std::vector<Aviso>& avisos);

// One machine's counters in the last whole reading of the grand total; nothing when there is none
// since the machine last forgot.
Resultado<std::optional<Contadores>> granTotalLeido(dao::Database& db, int grupo, int addr);

}  // namespace tarvo::totals
