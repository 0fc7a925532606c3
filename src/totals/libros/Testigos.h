// What the counters of one machine testify of a zeroing that nobody wrote down. A customer who
// brings a piece back may lower a count, and a busy day may hide a zeroing: no counter alone proves
// anything, so all of them are weighed. Rules: docs/libros.md.
#pragma once

#include <map>
#include <vector>

#include "totals/libros/Sesion.h"

namespace tarvo::totals {

// A reading of the open session whose machines held memorised sales when it was read. Where those
// didn't foot they may be too many and prove nothing: such a group was not zeroed by us.
struct Releida {
  int grupo = 0;
  const ClaseTotal* clase = nullptr;
  bool varias = false, entera = true;
  qint64 addr = 0, sec = 0;
};
Resultado<std::vector<Releida>> releidas(dao::Database& db, const Ajustes& ajustes);

// One machine and kind: what is memorised of it against what was read.
struct Testimonio {
  qint64 claves = 0;              // memorised keys that are not all zeros
  qint64 bajas = 0, iguales = 0;  // of these: a lower count; the same to the unit
  qint64 conAntes = 0, conAhora = 0, impAntes = 0, impAhora = 0;  // over all keys
  bool quieto() const { return iguales == claves && conAhora == conAntes && impAhora == impAntes; }
};
using Testimonios = std::map<int, Testimonio>;  // by kind
// By address. Machines without anything memorised in this kind are left out.
Resultado<std::map<int, Testimonio>> testimoniosDe(dao::Database& db, const Releida& r);
// The same for all kinds of a group that were read again: address, kind.
Resultado<std::map<int, Testimonios>> testimoniosDeGrupo(dao::Database& db,
                                                         const std::vector<Releida>& lista,
                                                         int grupo);

enum class Veredicto { Guarda, Olvido, Duda };  // still holds what is memorised, forgot it, either
// `sospecha`: an order to forget went out, and nobody knows if it was heard. `todas`: every kind
// that is memorised of the machine was read again.
Veredicto juzgar(const Testimonios& t, bool sospecha, bool todas);
bool algunaBaja(const Testimonios& t);
// The counters as a whole stand where they stood, whatever a few of them do.
bool firmes(const Testimonios& t);

}  // namespace tarvo::totals
