// A zeroing broken off between two frames: what the readings after it show of each kind of total.
// All possible outcomes are tried against them; the only one in which all sums foot counts, and
// where there are several, the evidence of the counters decides.
#include <algorithm>
#include <array>
#include <iterator>
#include <map>

#include "totals/TextosTotals.h"
#include "totals/libros/BasesInterior.h"
#include "totals/libros/Dudas.h"
#include "totals/libros/Partes.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

using dao::conMarcas;
using dao::Database;

// What is known about one machine.
struct Caja {
  int grupo = 0, addr = 0;
  qint64 ultimaTrama = 0;  // its position in the order of events
  qint64 confirmadas = 0, anunciadas = 0;
  bool desmentida = false;  // it confirmed, and its grand total was seen not to be cleared
  Fecha cuando;
  std::map<TipoTotal, qint64> quitado;  // unknown where missing
  std::set<TipoTotal> dudosas;          // kinds that may have been cleared
  std::map<TipoTotal, qint64> tenia;    // what each kind read since held before
  bool enteras = true;                  // each of these was read whole
  Testimonios t;                        // of the kinds read since, with something memorised
  std::set<TipoTotal> leidas;           // all kinds read since
};
using Via = std::set<TipoTotal>;  // the kinds that were cleared

Resultado<Caja> leerCaja(Database& db, int grupo, int addr) {
  Caja c;
  c.grupo = grupo, c.addr = addr;
  TARVO_TOMAR(
      auto tramas,
      db.consultar(
          u"SELECT count(*), SUM(SEC_HECHO>=SEC_INTENCION), MAX(SEC_INTENCION), "_s
          u"COALESCE(MAX(INTENCION), (SELECT MAX(COALESCE(BASE_ANTIGUA, BASE_HASTA)) FROM "_s
          u"Lecturas WHERE GRUPO=?)), MIN(SEC_HECHO)<0 FROM CerosParte WHERE GRUPO=? AND "_s
          u"ADDR=?"_s,
          grupo, grupo, addr));
  c.anunciadas = tramas->entero(0), c.confirmadas = tramas->entero(1);
  c.ultimaTrama = tramas->entero(2), c.cuando = tramas->fecha(3);
  c.desmentida = tramas->logico(4);
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(u"SELECT CLASE, DUDA, QUITADO FROM CerosClase WHERE GRUPO=? AND ADDR=?", grupo,
                   addr),
      [&](const dao::Recordset& fila) {
        const auto clase = deNumero<TipoTotal>(fila.entero(0));
        if (clase && fila.logico(1)) c.dudosas.insert(*clase);
        if (clase && !fila.nulo(2)) c.quitado[*clase] = fila.entero(2);
      }));
  return c;
}

// The open session's kinds of the group read after the last frame, whole or not.
Resultado<std::set<TipoTotal>> leidasTras(Database& db, const Ajustes& ajustes, int grupo,
                                          qint64 sec) {
  std::set<TipoTotal> clases;
  for (const ClaseTotal& c : enVigor(ajustes)) {
    TARVO_TOMAR(const auto n,
                db.uno(conMarcas(u"SELECT count(*) FROM Lecturas, Sesiones WHERE GRUPO=? AND "
                                 u"CODGPO=GRUPO AND CLASE=? AND SEC>? AND {enSesion}",
                                 {{u"enSesion", CampoSesion(c.tipo)}}),
                       grupo, numeroDe(c.tipo), sec));
    if (n.entero() > 0) clases.insert(c.tipo);
  }
  return clases;
}

// Were all memorised kinds of the group read since?
Resultado<bool> todasReleidas(Database& db, const Caja& c) {
  QStringList leidas;
  for (const TipoTotal k : c.leidas) leidas << QString::number(numeroDe(k));
  TARVO_TOMAR(
      const auto n,
      db.uno(conMarcas(u"SELECT count(*) FROM Lecturas WHERE GRUPO=? AND LINK IS NOT NULL AND "
                       u"CLASE NOT IN ({leidas})",
                       {{u"leidas", leidas.join(u',')}}),
             c.grupo));
  return n.entero() == 0;
}

// The frames clear doubtful kinds; clearing the machine by hand clears all.
bool puede(const Caja& c, const Via& via) {
  return via.size() == c.t.size() ||
         std::ranges::all_of(via, [&](TipoTotal k) { return c.dudosas.contains(k); });
}

// What a kind held when it may have been cleared. The kinds may have been memorised on different
// nights, but they held the same amount at any time: that of the one memorised last, less what each
// was lower already.
Resultado<> ponerLoQueTenian(Database& db, Caja& c) {
  qint64 ultima = 0, habia = 0;
  std::map<TipoTotal, qint64> secs;
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(u"SELECT CLASE, BASE_SEC FROM Lecturas WHERE GRUPO=? AND BASE_SEC>0", c.grupo),
      [&](const dao::Recordset& fila) {
        const auto clase = deNumero<TipoTotal>(fila.entero(0));
        if (!clase || !c.t.contains(*clase) || !c.quitado.contains(*clase)) return;
        secs[*clase] = fila.entero(1);
        if (fila.entero(1) <= ultima) return;
        ultima = fila.entero(1);
        habia = c.t.at(*clase).impAntes + c.quitado.at(*clase);
      }));
  for (const auto& [k, t] : c.t)
    c.tenia[k] = secs.contains(k) ? habia - c.quitado.at(k) : t.impAntes;
  return {};
}

// All ways in which the sums of all kinds foot. A kind whose shortfall is unknown can't be summed.
std::vector<Via> viasQueCuadran(const Caja& c) {
  std::vector<TipoTotal> clases;
  for (const auto& [k, t] : c.t) clases.push_back(k);
  std::vector<Via> vias;
  for (unsigned m = 0; m < 1U << clases.size(); ++m) {
    Via via;
    std::set<qint64> sumas;
    for (size_t i = 0; i < clases.size(); ++i) {
      const TipoTotal k = clases[i];
      const bool borrada = (m >> i & 1U) != 0;
      if (borrada) via.insert(k);
      const auto q = c.quitado.find(k);
      if (q == c.quitado.end()) continue;
      sumas.insert(c.t.at(k).impAhora + q->second + (borrada ? c.tenia.at(k) : 0));
    }
    if (sumas.size() < 2 && puede(c, via)) vias.push_back(via);
  }
  return vias;
}

const Via& masCorta(const std::vector<Via>& vias) {
  return *std::ranges::min_element(vias, {}, &Via::size);
}
const Via& masLarga(const std::vector<Via>& vias) {
  return *std::ranges::max_element(vias, {}, &Via::size);
}

// Nothing was cleared, or everything: no single frame clears everything, so the answered frames
// decide, unless the machine's own counters contradict them.
std::optional<Via> nadaOTodo(const Caja& c, const std::vector<Via>& vias) {
  const bool baja = algunaBaja(c.t);
  const bool quietas = firmes(c.t) || quietos(c.t);
  if (c.confirmadas >= 2) return quietas ? std::nullopt : std::optional(masLarga(vias));
  if (c.anunciadas >= 2 && baja && !quietas && !c.desmentida) return masLarga(vias);
  if (quietos(c.t)) return masCorta(vias);
  switch (juzgar(c.t, c.anunciadas >= 2, true)) {
    case Veredicto::Guarda:
      return masCorta(vias);
    case Veredicto::Olvido:
      return masLarga(vias);
    case Veredicto::Duda:
      break;
  }
  return std::nullopt;
}

// Kind by kind, where the sums don't decide: the sales came to nothing, or there is only one kind.
std::optional<Via> claseAClase(const Caja& c, const std::vector<Via>& vias) {
  Via via;
  for (const auto& [k, t] : c.t) {
    if (t.quieto()) continue;
    const Veredicto v = juzgar({{k, t}}, c.dudosas.contains(k), true);
    if (v == Veredicto::Duda) return std::nullopt;
    if (v == Veredicto::Olvido) via.insert(k);
  }
  return std::ranges::find(vias, via) == vias.end() ? std::nullopt : std::optional(via);
}

std::optional<Via> decidir(const Caja& c, const std::vector<Via>& vias, bool todas) {
  if (vias.empty()) return std::nullopt;
  if (c.t.size() > 1 && vias.size() == 1) return vias.front();
  const bool nadaOToda = vias.size() == 2 && masCorta(vias).empty() &&
                         masLarga(vias).size() == c.t.size() && c.t.size() > 1;
  if (nadaOToda && todas) return nadaOTodo(c, vias);
  return claseAClase(c, vias);
}

// The open session's reading of this kind is from after the clearing.
Resultado<> corregirLectura(Database& db, const Caja& c, TipoTotal clase, qint64 cambio) {
  TARVO_INTENTAR(db.ejecutar(u"UPDATE Lecturas SET AJUSTE=AJUSTE+? WHERE GRUPO=? AND CLASE=?",
                             cambio, c.grupo, numeroDe(clase)));
  TARVO_INTENTAR(db.ejecutar(
      conMarcas(u"UPDATE Sesiones SET {desde}=? WHERE CODGPO=? AND ({desde} IS NULL OR {desde}<?) "
                u"AND EXISTS (SELECT 1 FROM Lecturas WHERE GRUPO=CODGPO AND CLASE=? AND LINK IS "
                u"NULL)",
                {{u"desde", CampoDesde(clase)}}),
      c.cuando, c.grupo, c.cuando, numeroDe(clase)));
  return {};
}

Resultado<> aplicar(Database& db, const Caja& c, const Via& borradas) {
  for (const TipoTotal k : c.leidas) {
    if (!c.dudosas.contains(k)) continue;
    const auto t = c.t.find(k);
    if (borradas.contains(k)) {
      TARVO_INTENTAR(olvidarClase(db, c.grupo, c.addr, k));
      TARVO_INTENTAR(corregirLectura(db, c, k, c.tenia.at(k)));
    }
    // A kind that was never memorised shows nothing: its shortfall against the others is unknown.
    TARVO_TOMAR(const auto base,
                db.uno(u"SELECT count(*) FROM Lecturas WHERE GRUPO=? AND CLASE=? "_s
                       u"AND (LINK IS NOT NULL OR BASE_HASTA IS NOT NULL)"_s,
                       c.grupo, numeroDe(k)));
    const bool sabido = t != c.t.end() || base.entero() > 0;
    TARVO_INTENTAR(db.ejecutar(
        u"UPDATE CerosClase SET DUDA=0, QUITADO=CASE WHEN ? THEN QUITADO+? END WHERE GRUPO=? AND "_s
        u"ADDR=? AND CLASE=?"_s,
        sabido, borradas.contains(k) ? c.tenia.at(k) : 0, c.grupo, c.addr, numeroDe(k)));
    if (!sabido)
      TARVO_INTENTAR(db.ejecutar(u"UPDATE Lecturas SET AJUSTE=NULL WHERE GRUPO=? AND CLASE=?"_s,
                                 c.grupo, numeroDe(k)));
  }
  return {};
}

// Every kind that was read has been cleared: the machine counts afresh, as after a whole zeroing.
Resultado<> aplicarTodo(Database& db, const Ajustes& ajustes, const Textos& textos, const Caja& c,
                        std::vector<Aviso>& avisos) {
  TARVO_INTENTAR(darPorOlvidadas(db, ajustes, c.grupo, {c.addr}, textos, avisos));
  for (const auto& [k, q] : c.quitado)
    if (c.leidas.contains(k))
      TARVO_INTENTAR(db.ejecutar(u"UPDATE Lecturas SET AJUSTE=AJUSTE-? WHERE GRUPO=? AND CLASE=?"_s,
                                 q, c.grupo, numeroDe(k)));
  return olvidarPartes(db, c.grupo, c.addr);
}

enum class Estado { Resuelta, Preguntar, SinSaber };

Resultado<Estado> resolverCaja(Database& db, const Ajustes& ajustes, const Textos& textos, Caja& c,
                               bool& borrado, std::vector<Aviso>& avisos) {
  TARVO_TOMAR(const auto todas, todasReleidas(db, c));
  const auto vias = viasQueCuadran(c);
  TARVO_TOMAR(const auto respuesta, respuestaDe(db, c.grupo, c.addr));
  std::optional<Via> via = c.t.empty() ? Via{} : decidir(c, vias, todas);
  TARVO_TOMAR(const bool espera, preguntada(db, c.grupo, c.addr));
  if (espera && vias.size() > 1 && !quietos(c.t)) via.reset();
  if (respuesta && !vias.empty()) via = *respuesta ? masLarga(vias) : masCorta(vias);
  // Where a range of codes was read, no answer says which kinds were cleared.
  if (!via) return todas && c.enteras && vias.size() > 1 ? Estado::Preguntar : Estado::SinSaber;
  const bool todo = !c.t.empty() && todas && via->size() == c.t.size();
  borrado = borrado || (!todo && !via->empty());
  if (todo)
    TARVO_INTENTAR(aplicarTodo(db, ajustes, textos, c, avisos));
  else
    TARVO_INTENTAR(aplicar(db, c, *via));
  return Estado::Resuelta;
}

Resultado<std::vector<Caja>> cajasQueJuzgar(Database& db, const Ajustes& ajustes, int grupo) {
  TARVO_TOMAR(const auto addrs, maquinasAMedias(db, grupo));
  TARVO_TOMAR(auto lista, releidas(db, ajustes));
  std::erase_if(lista, &Releida::sinCuadre);
  TARVO_TOMAR(auto testimonios, testimoniosDeGrupo(db, lista, grupo));
  std::vector<Caja> cajas;
  for (const int addr : addrs) {
    TARVO_TOMAR(auto c, leerCaja(db, grupo, addr));
    TARVO_TOMAR(c.leidas, leidasTras(db, ajustes, grupo, c.ultimaTrama));
    for (const auto& [k, t] : testimonios[addr])
      if (c.leidas.contains(k)) c.t[k] = t;
    // The sum of a range of codes can't foot with anything.
    TARVO_INTENTAR(ponerLoQueTenian(db, c));
    for (const Releida& r : lista) {
      if (r.grupo != grupo || r.entera) continue;
      c.quitado.erase(r.clase->tipo);
      c.enteras = false;
    }
    const bool alguna =
        std::ranges::any_of(c.leidas, [&](TipoTotal k) { return c.dudosas.contains(k); });
    if (!alguna) c.anunciadas = c.confirmadas = 0;
    if (alguna || algunaBaja(c.t)) cajas.push_back(std::move(c));
  }
  return cajas;
}

// The only way in which the sums of a register foot, if some of its kinds must have been cleared
// for it and others not.
EnParte borradaEnParte(const Testimonios& t) {
  Caja c;
  c.t = t;
  for (const auto& [k, x] : t) {
    c.dudosas.insert(k);
    c.quitado[k] = 0;
    c.tenia[k] = x.impAntes;
  }
  const auto vias = viasQueCuadran(c);
  if (vias.size() != 1 || vias.front().empty() || vias.front().size() == t.size())
    return EnParte::No;
  const auto todas = [&](auto que) { return std::ranges::all_of(vias.front(), que); };
  if (!todas([&](TipoTotal k) { return t.at(k).bajas > 0; })) return EnParte::No;
  return todas([&](TipoTotal k) { return t.at(k).conAhora > 0; }) ? EnParte::Si : EnParte::TalVez;
}

}  // namespace

Resultado<EnParte> anotarBorradasEnParte(Database& db, const Textos& textos, int grupo,
                                         const std::vector<Releida>& lista,
                                         std::vector<Aviso>& avisos) {
  TARVO_TOMAR(const auto tipo, db.uno(u"SELECT TIPO FROM GRUPOS WHERE CODGPO=?", grupo));
  if (deNumero<TipoGrupo>(tipo.entero()) != TipoGrupo::Registradoras) return EnParte::No;
  std::vector<Releida> enteras;
  std::ranges::copy_if(lista, std::back_inserter(enteras), &Releida::entera);
  TARVO_TOMAR(const auto testimonios, testimoniosDeGrupo(db, enteras, grupo));
  TARVO_TOMAR(const auto aMedias, maquinasAMedias(db, grupo));
  std::vector<int> partidas;
  for (const auto& [addr, t] : testimonios) {
    const EnParte esta = aMedias.contains(addr) ? EnParte::No : borradaEnParte(t);
    if (esta == EnParte::TalVez) return esta;
    if (esta == EnParte::Si) partidas.push_back(addr);
  }
  for (const int addr : partidas) {
    TARVO_INTENTAR(ponerEnDuda(db, grupo, addr));
    avisos.push_back({grupo, textos(kTxBorradaEnParte, {grupo, addr}), true});
  }
  return partidas.empty() ? EnParte::No : EnParte::Si;
}

Resultado<bool> resolverPartes(Database& db, const Ajustes& ajustes, const Textos& textos,
                               int grupo, std::vector<Aviso>& avisos) {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db));
  TARVO_TOMAR(auto cajas, cajasQueJuzgar(db, ajustes, grupo));
  bool borrado = false, sinSaber = false;
  std::map<int, Testimonios> preguntas;
  for (Caja& c : cajas) {
    TARVO_TOMAR(const auto estado, resolverCaja(db, ajustes, textos, c, borrado, avisos));
    if (estado == Estado::Preguntar) preguntas[c.addr] = c.t;
    sinSaber = sinSaber || estado == Estado::SinSaber;
  }
  if (sinSaber) {
    TARVO_INTENTAR(dejarFuera(db, ajustes, grupo));
    avisos.push_back({grupo, textos(kTxCeroSinSaber, {grupo}), true});
  } else if (!preguntas.empty()) {
    TARVO_INTENTAR(abrirDudas(db, ajustes, textos, grupo, preguntas, avisos));
  }
  TARVO_INTENTAR(tr.confirmar());
  if (borrado) avisos.push_back({grupo, textos(kTxCeroAMedias, {grupo}), false});
  return !sinSaber && preguntas.empty();
}

}  // namespace tarvo::totals
