// Sums of the selection: where they go, what they would count twice, and how one is undone.
#include <algorithm>
#include <iterator>

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

// Accumulated into it, or summed into it earlier.
Resultado<bool> VerTot::tieneDentro(const Columna& destino, const Columna& c) {
  const int tipo = destino.periodo.tipo;
  if (c.acumulado(tipo) &&
      LimitesPeriodo(tipo, c.periodo.desde, c.periodo.desde) == destino.periodo)
    return true;
  return Sumas(p_).tiene(destino.LINK, c.periodo);
}

// The periods in `destino` that have days in common with `c` or with what it holds; without those
// that lie within another of them.
Resultado<std::vector<Periodo>> VerTot::comunes(const std::vector<Periodo>& enDestino,
                                                const Columna& c) {
  TARVO_TOMAR(auto suyos, Sumas(p_).contenido(c));
  suyos.push_back(c.periodo);
  std::vector<Periodo> v;
  std::ranges::copy_if(enDestino, std::back_inserter(v), [&](const Periodo& p) {
    return std::ranges::any_of(suyos, [&p](const Periodo& suyo) { return suyo.solapa(p); });
  });
  const auto todos = v;
  std::erase_if(v, [&](const Periodo& p) {
    return std::ranges::any_of(todos, [&p](const Periodo& otro) {
      return otro.desde <= p.desde && p.hasta <= otro.hasta &&
             (otro.desde < p.desde || p.hasta < otro.hasta);
    });
  });
  return v;
}

// What follows the target would hold the sales of `c` once more.
void VerTot::ponerMayores(const Columna& destino, const Columna& c, Suma& suma) {
  for (int tipo = kSemanal; tipo <= kAnual; ++tipo) {
    const auto mayor = Periodos::mayorDe(tipo, c.periodo);
    if (mayor && c.acumulado(tipo) && destino.acumulado(tipo) &&
        mayor == Periodos::mayorDe(tipo, destino.periodo))
      suma.solapes.push_back({c.periodo, *mayor});
  }
}

Resultado<> VerTot::ponerSolapes(const std::vector<Columna>& cuales, Suma& suma) {
  for (size_t i = 0; i < cuales.size(); ++i)
    for (size_t j = i + 1; j < cuales.size(); ++j)
      if (cuales[i].periodo.solapa(cuales[j].periodo))
        suma.solapes.push_back({cuales[i].periodo, cuales[j].periodo});
  if (!suma.existente) return {};
  const Columna& destino = *suma.existente;
  const bool elegido = std::ranges::find(cuales, destino.LINK, &Columna::LINK) != cuales.end();
  TARVO_TOMAR(const auto enDestino, Sumas(p_).contenido(destino));
  TARVO_TOMAR(const bool vacio, p_.sinVentas(destino.LINK));
  if (vacio && enDestino.empty())  // it has nothing in common with any
    std::erase_if(suma.solapes, [&](const Solape& s) {
      return s.uno == destino.periodo || s.otro == destino.periodo;
    });
  for (const Columna& c : cuales) {
    if (c.LINK == destino.LINK) continue;
    TARVO_TOMAR(const auto dentro, tieneDentro(destino, c));
    if (dentro) suma.dentro.push_back(c.LINK);
    ponerMayores(destino, c, suma);
    if (destino.stkADO > 0 && c.stkADO > 0) suma.enStock.push_back(c.periodo);
    if (elegido) continue;  // reported above, as an overlap of the two
    if (dentro) {
      suma.solapes.push_back({c.periodo, destino.periodo, true});
      continue;
    }
    TARVO_TOMAR(const auto comunes, this->comunes(enDestino, c));
    for (const Periodo& p : comunes) suma.solapes.push_back({c.periodo, p});
  }
  return {};
}

// Part and sum, where one of them is done or among `links`, and the other is to be.
Resultado<std::vector<VerTot::Solape>> VerTot::porDuplicado(
    const std::vector<qint64>& links, const std::function<bool(const Columna&)>& hecho,
    const std::function<bool(const Periodo&, const Periodo&)>& juntos) {
  std::vector<Solape> v;
  for (const qint64 link : links) {
    TARVO_TOMAR(const auto c, p_.columna(link));
    if (!c || hecho(*c)) continue;
    TARVO_TOMAR(const auto dentro, Sumas(p_).contenido(*c));
    for (const Periodo& p : dentro) {
      TARVO_TOMAR(const auto parte, p_.BuscarPeriodo(p.tipo, p.desde, p.hasta));
      const bool tambien = parte && (hecho(*parte) || std::ranges::count(links, parte->LINK) > 0);
      if (tambien && juntos(p, c->periodo)) v.push_back({p, c->periodo});
    }
    TARVO_TOMAR(const auto sumas, Sumas(p_).quienesLoTienen(*c));
    for (const Columna& suma : sumas)
      if (hecho(suma) && juntos(c->periodo, suma.periodo)) v.push_back({c->periodo, suma.periodo});
  }
  return v;
}

Resultado<std::vector<VerTot::Solape>> VerTot::yaEnStock(const std::vector<qint64>& links) {
  return porDuplicado(
      links, [](const Columna& c) { return c.stkADO > 0; },
      [](const Periodo&, const Periodo&) { return true; });
}

Resultado<std::vector<VerTot::Solape>> VerTot::yaAcumulados(const std::vector<qint64>& links,
                                                            int tipo) {
  TARVO_TOMAR(auto v, porDuplicado(
                          links, [tipo](const Columna& c) { return c.acumulado(tipo); },
                          [tipo](const Periodo& a, const Periodo& b) {
                            const auto suyo = Periodos::mayorDe(tipo, a);
                            return suyo && suyo == Periodos::mayorDe(tipo, b);
                          }));
  // A day and the week that has it. Other periods may overlap: each has its own groups.
  TARVO_TOMAR(const auto prevision, preverAcumular(links, tipo));
  for (const Solape& s : prevision.relacionados)
    if (s.uno.tipo != kOtros && s.otro.tipo != kOtros) v.push_back(s);
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
  TARVO_INTENTAR(ponerSolapes(cuales, suma));
  return suma;
}

Resultado<bool> VerTot::SumarIntv(qint64 lote, std::span<const qint64> sin) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(const auto destino, destinoDeSuma());
  if (!destino || !destino->existente) return false;
  if (destino->sumandos == 0) return true;
  TARVO_TOMAR(auto cuales, elegidas());
  std::erase_if(cuales, [&sin](const Columna& c) { return std::ranges::count(sin, c.LINK) > 0; });
  std::vector<Periodo> dobles;
  for (const Solape& s : destino->solapes)
    if (sin.empty() || !s.yaDentro) dobles.insert(dobles.end(), {s.uno, s.otro});
  TARVO_INTENTAR(Sumas(p_).sumar(destino->existente->LINK, cuales, dobles, lote));
  TARVO_INTENTAR(t.confirmar());
  return true;
}

}  // namespace tarvo::totals
