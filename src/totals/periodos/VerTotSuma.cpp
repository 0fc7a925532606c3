// Sums of the selection: where they go, what they would count twice, and how one is undone.
#include <algorithm>

#include "totals/periodos/Sumas.h"
#include "totals/periodos/VerTot.h"

namespace tarvo::totals {

// The selected periods; empty when one of them is missing.
Resultado<std::vector<Columna>> VerTot::elegidas() {
  std::vector<Columna> v;
  for (const qint64 link : seleccion_) {
    TARVO_TOMAR(const auto c, p_.columna(link));
    if (!c) return std::vector<Columna>{};
    v.push_back(*c);
  }
  return v;
}

Resultado<std::vector<VerTot::Solape>> VerTot::solapesDe(const std::vector<Columna>& cuales,
                                                         const std::optional<Columna>& destino) {
  std::vector<Solape> v;
  for (size_t i = 0; i < cuales.size(); ++i)
    for (size_t j = i + 1; j < cuales.size(); ++j)
      if (cuales[i].periodo.solapa(cuales[j].periodo))
        v.push_back({cuales[i].periodo, cuales[j].periodo});
  if (!destino) return v;
  const bool elegido = std::ranges::find(cuales, destino->LINK, &Columna::LINK) != cuales.end();
  for (const Columna& c : cuales) {
    if (elegido || c.LINK == destino->LINK) continue;  // reported above as an overlap of the two
    const int tipo = destino->periodo.tipo;
    bool dentro = c.acumulado(tipo) &&
                  LimitesPeriodo(tipo, c.periodo.desde, c.periodo.desde) == destino->periodo;
    if (!dentro) {
      TARVO_TOMAR(const auto sumado, Sumas(p_).tiene(destino->LINK, c.periodo));
      dentro = sumado;
    }
    if (dentro) v.push_back({c.periodo, destino->periodo, true});
  }
  return v;
}

Resultado<std::optional<VerTot::Suma>> VerTot::destinoDeSuma() {
  TARVO_TOMAR(const auto cuales, elegidas());
  if (cuales.empty()) return std::nullopt;
  Periodo todo = cuales.front().periodo;
  for (const Columna& c : cuales) {
    todo.desde = std::min(todo.desde, c.periodo.desde);
    todo.hasta = std::max(todo.hasta, c.periodo.hasta);
  }
  Suma suma;
  suma.periodo = Calendario(a_).DeterminarPeriodo(todo.desde, todo.hasta, std::nullopt);
  TARVO_TOMAR(auto hay,
              p_.BuscarPeriodo(suma.periodo.tipo, suma.periodo.desde, suma.periodo.hasta));
  suma.existente = std::move(hay);
  suma.sumandos = static_cast<int>(std::ranges::count_if(cuales, [&suma](const Columna& c) {
    return !suma.existente || c.LINK != suma.existente->LINK;
  }));
  TARVO_TOMAR(auto solapes, solapesDe(cuales, suma.existente));
  suma.solapes = std::move(solapes);
  return suma;
}

Resultado<bool> VerTot::SumarIntv(qint64 lote) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(const auto destino, destinoDeSuma());
  if (!destino || !destino->existente) return false;
  if (destino->sumandos == 0) return true;
  TARVO_TOMAR(const auto cuales, elegidas());
  TARVO_INTENTAR(
      Sumas(p_).sumar(destino->existente->LINK, cuales, !destino->solapes.empty(), lote));
  TARVO_INTENTAR(t.confirmar());
  return true;
}

}  // namespace tarvo::totals
