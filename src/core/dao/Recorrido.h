// The one way to walk the rows of a query:
//
//   TARVO_INTENTAR(recorrer(db.consultar(u"select CODGPO from GRUPOS where SECCION=?", seccion),
//                           [&](const Recordset& fila) { grupos.insert(fila.entero(0)); }));
//   return reunir(db.consultar(u"select NMSECC from SECCS order by NMSECC"),
//                 [](const Recordset& fila) { return fila.entero(0); });
//
// An error of the query, a move or the callback ends the walk and is its result.
#pragma once

#include <concepts>
#include <memory>
#include <type_traits>
#include <vector>

#include "core/dao/Recordset.h"

namespace tarvo::dao {

using Abierta = Resultado<std::unique_ptr<Recordset>>;

// Hands each row to `una`, from the recordset's position on. What `una` returns: nothing; false, to
// end the walk at this row; or a Resultado<>.
template <class F>
Resultado<> recorrer(Recordset& filas, F&& una) {
  using Fin = std::invoke_result_t<F&, const Recordset&>;
  while (!filas.Eof()) {
    if constexpr (std::same_as<Fin, bool>) {
      if (!una(std::as_const(filas))) return {};
    } else if constexpr (std::is_void_v<Fin>) {
      una(std::as_const(filas));
    } else {
      static_assert(std::same_as<Fin, Resultado<>>);
      TARVO_INTENTAR(una(std::as_const(filas)));
    }
    TARVO_INTENTAR(filas.MoveNext());
  }
  return {};
}
template <class F>
Resultado<> recorrer(Abierta filas, F&& una) {
  if (!filas) return std::unexpected(std::move(filas).error());
  return recorrer(**filas, una);
}

// The results of `una` for each row, in the order of the query.
template <class F>
auto reunir(Abierta filas, F&& una)
    -> Resultado<std::vector<std::remove_cvref_t<std::invoke_result_t<F&, const Recordset&>>>> {
  std::vector<std::remove_cvref_t<std::invoke_result_t<F&, const Recordset&>>> todas;
  TARVO_INTENTAR(
      recorrer(std::move(filas), [&](const Recordset& fila) { todas.push_back(una(fila)); }));
  return todas;
}

}  // namespace tarvo::dao
