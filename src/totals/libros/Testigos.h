// The evidence in one machine's counters for an unrecorded zeroing. A returned item may lower a
// count, and a busy day may hide a zeroing: no single counter proves anything, so all of them are
// weighed. Rules: docs/libros.md.
#pragma once

#include <map>
#include <vector>

#include "totals/libros/Sesion.h"

namespace tarvo::totals {

// A reading of the open session from machines that held memorised sales. `sinCuadre`: those didn't
// foot and may be too high.
struct Releida {
  int grupo = 0;
  const ClaseTotal* clase = nullptr;
  bool varias = false, entera = true;
  qint64 addr = 0, sec = 0;
  // What it is compared with: the memorised counters, or those of machines that confirmed that they
  // forgot.
  enum class Ante { Memorizado, LoConfirmado } ante = Ante::Memorizado;
  bool sinCuadre = false;
};
Resultado<std::vector<Releida>> releidas(dao::Database& db, const Ajustes& ajustes);

// One machine and kind: its memorised counters against the reading.
struct Testimonio {
  qint64 claves = 0;                    // memorised keys that are not all zero
  qint64 bajas = 0, desaparecidas = 0;  // of these: a lower count; of the latter: none left
  qint64 iguales = 0;                   // the same to the unit
  qint64 pesosIguales = 0;              // of these: with a weight
  qint64 variasIguales = 0;             // of `iguales`: with several sales
  qint64 conAntes = 0, conAhora = 0, impAntes = 0, impAhora = 0;  // over all keys
  bool quieto() const { return iguales == claves && conAhora == conAntes && impAhora == impAntes; }
};
using Testimonios = std::map<TipoTotal, Testimonio>;
// By address. Machines with nothing memorised in this kind are left out.
Resultado<std::map<int, Testimonio>> testimoniosDe(dao::Database& db, const Releida& r);
// The same for all reread kinds of a group: address, kind.
Resultado<std::map<int, Testimonios>> testimoniosDeGrupo(dao::Database& db,
                                                         const std::vector<Releida>& lista,
                                                         int grupo);

enum class Veredicto { Guarda, Olvido, Duda };  // holds its memorised counters, forgot, either
// `sospecha`: it may have forgotten although no counter is lower: an order to forget was sent and
// may not have been heard, or an earlier reading that nobody judged was lower. `todas`: every
// memorised kind of the machine was reread.
Veredicto juzgar(const Testimonios& t, bool sospecha, bool todas);
// For a machine that confirmed that it forgot and wasn't seen at zero: it is believed if more of
// its counters are lower than returns explain, and not if more are where they were than two days
// have in common by chance.
Veredicto juzgarConfirmada(const Testimonios& t);
bool algunaBaja(const Testimonios& t);
// So many counters are lower, or the grand total's count is, that no day's returns explain it.
bool masQueDevoluciones(const Testimonios& t);
// Every counter is where it was.
bool quietos(const Testimonios& t);
// Whether a reading goes on from counters that may be another machine's. They must be more than a
// few, since a machine that sells more may have as much of each.
enum class Parecido { Sigue, Otra, NoSeSabe };
Parecido parecido(const Testimonios& t);
// More of its articles are where they were than two machines have in common by chance.
bool inconfundible(const Testimonios& t);
// The counters as a whole are where they were, whatever a few of them do.
bool firmes(const Testimonios& t);

}  // namespace tarvo::totals
