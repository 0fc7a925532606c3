// A zeroing that broke off between two frames: what the readings behind it show of each announced
// set. All that may have happened is tried against them; what counts is the one way in which no
// kept counter went down and all sums foot.
#include <algorithm>
#include <array>
#include <map>

#include "totals/TextosTotals.h"
#include "totals/libros/BasesInterior.h"
#include "totals/libros/Cuadre.h"
#include "totals/libros/Partes.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

using dao::Database;

constexpr size_t kMaxVias = 4096;

struct Nota {
  qint64 intencion = 0, hecho = 0;
  Fecha anunciada;
  std::optional<qint64> total;
  qint64 quitado = 0;
  bool pendiente() const { return intencion > hecho; }
};
using Notas = std::map<int, std::map<int, Nota>>;  // by address and set

// What the readings show of one machine, by set.
struct Indicio {
  std::set<int> bases;    // something memorised was still in the machine
  std::set<int> dudosos;  // announced, not confirmed, read since, and with something memorised
  std::set<int> bajos;    // some count went down
};

// A way in which a machine may have come through.
struct Salida {
  int addr = 0;
  std::set<int> olvidados;
  bool todo = false;                               // all of it forgot at one time
  std::array<qint64, kConjuntos + 1> cambio = {};  // what each set falls behind by it
};
using Via = std::vector<Salida>;  // one way for each machine

Resultado<Notas> leerNotas(Database& db, int grupo) {
  TARVO_TOMAR(
      auto rs,
      db.consultar(
          u"SELECT ADDR, CONJUNTO, SEC_INTENCION, SEC_HECHO, INTENCION, TOTAL, QUITADO FROM CerosParte "_s
          u"WHERE GRUPO=?"_s,
          grupo));
  Notas notas;
  for (; !rs->Eof();) {
    Nota& n = notas[static_cast<int>(rs->entero(0))][static_cast<int>(rs->entero(1))];
    n = {rs->entero(2), rs->entero(3), rs->fecha(4), {}, rs->entero(6)};
    if (!rs->nulo(5)) n.total = rs->entero(5);
    TARVO_INTENTAR(rs->MoveNext());
  }
  return notas;
}

Resultado<std::set<int>> conBase(Database& db, const Releida& r) {
  TARVO_TOMAR(auto rs,
              db.consultar(u"SELECT DISTINCT ADDR FROM BaseFilas WHERE GRUPO=? AND CLASE=?"_s,
                           r.grupo, r.clase->numero));
  std::set<int> addrs;
  for (; !rs->Eof();) {
    if (r.varias || rs->entero(0) == r.addr) addrs.insert(static_cast<int>(rs->entero(0)));
    TARVO_INTENTAR(rs->MoveNext());
  }
  return addrs;
}

Resultado<std::map<int, Indicio>> leerIndicios(Database& db, const Ajustes& ajustes, int grupo,
                                               Notas& notas) {
  TARVO_TOMAR(const auto lista, releidas(db, ajustes));
  std::map<int, Indicio> indicios;
  for (const Releida& r : lista) {
    if (r.grupo != grupo) continue;
    const int conjunto = conjuntoDe(r.clase->numero);
    const auto bajos = bajaron(db, r);
    const auto base = conBase(db, r);
    if (!bajos || !base) return std::unexpected(bajos ? base.error() : bajos.error());
    for (const int addr : *bajos) indicios[addr].bajos.insert(conjunto);
    for (const int addr : *base) {
      indicios[addr].bases.insert(conjunto);
      if (const Nota& n = notas[addr][conjunto]; n.pendiente() && r.sec > n.intencion)
        indicios[addr].dudosos.insert(conjunto);
    }
  }
  std::erase_if(indicios,
                [](const auto& i) { return i.second.dudosos.empty() && i.second.bajos.empty(); });
  return indicios;
}

// The ways of one machine. Without a number for what a set fell behind nothing can be shown.
std::vector<Salida> salidasDe(int addr, const Indicio& x, std::map<int, Nota>& notas) {
  std::vector<Salida> salidas;
  std::vector<int> libres;
  std::ranges::set_difference(x.dudosos, x.bajos, std::back_inserter(libres));
  for (unsigned m = 0; std::ranges::includes(x.dudosos, x.bajos) && m < 1U << libres.size(); ++m) {
    Salida s{addr, x.bajos};
    for (size_t i = 0; i < libres.size(); ++i)
      if (m >> i & 1U) s.olvidados.insert(libres[i]);
    bool sabido = true;
    for (const int c : s.olvidados) {
      sabido = sabido && notas[c].total;
      s.cambio[static_cast<size_t>(c)] = notas[c].total.value_or(0) - notas[c].quitado;
    }
    if (sabido) salidas.push_back(s);
  }
  // To have forgotten every set that held something is to have forgotten all.
  const auto todo = [&](const Salida& s) { return s.olvidados == x.bases; };
  if (x.bajos.empty() || std::ranges::any_of(salidas, todo)) return salidas;
  salidas.push_back({addr, {}, true});
  for (const auto& [c, n] : notas) salidas.back().cambio[static_cast<size_t>(c)] = -n.quitado;
  return salidas;
}

bool cuadran(const std::vector<Comparado>& sumas, const Via& via) {
  std::array<qint64, kConjuntos + 1> cambio{};
  for (const Salida& s : via)
    for (size_t c = 0; c < cambio.size(); ++c) cambio[c] += s.cambio[c];
  return std::ranges::all_of(sumas, [&](const Comparado& k) {
    return k.suma + cambio[static_cast<size_t>(conjuntoDe(k.clase))] ==
           k.granTotal + cambio[static_cast<size_t>(conjuntoDe(kGranTotal))];
  });
}

// The only way that foots, if there is just one.
std::optional<Via> laUnica(const std::vector<std::vector<Salida>>& salidas,
                           const std::vector<Comparado>& sumas) {
  std::vector<Via> vias{{}};
  for (const auto& deUna : salidas) {
    std::vector<Via> mas;
    for (const Via& v : vias)
      for (const Salida& s : deUna) (mas.emplace_back(v)).push_back(s);
    if (mas.size() > kMaxVias) return std::nullopt;
    vias = std::move(mas);
  }
  std::erase_if(vias, [&](const Via& v) { return !cuadran(sumas, v); });
  return vias.size() == 1 ? std::optional(vias.front()) : std::nullopt;
}

// Where one kind is all that is ever read of the group its counts alone decide.
Resultado<std::optional<Via>> decidir(Database& db, const Ajustes& ajustes, int grupo,
                                      const std::map<int, Indicio>& indicios, Notas& notas) {
  TARVO_TOMAR(const auto leidas,
              db.uno(u"SELECT count(*) FROM Lecturas WHERE GRUPO=? AND SEC>0"_s, grupo));
  if (leidas.entero() < 2) {
    Via via;
    via.reserve(indicios.size());
    for (const auto& [addr, x] : indicios) via.push_back({addr, x.bajos});
    return via;
  }
  TARVO_TOMAR(const auto sumas, compararTotales(db, ajustes, 0, grupo));
  const bool cruzan = std::ranges::any_of(
      sumas, [](const Comparado& k) { return conjuntoDe(k.clase) != conjuntoDe(kGranTotal); });
  if (!cruzan) return std::nullopt;
  std::vector<std::vector<Salida>> salidas;
  salidas.reserve(indicios.size());
  for (const auto& [addr, x] : indicios) salidas.push_back(salidasDe(addr, x, notas[addr]));
  return laUnica(salidas, sumas);
}

// The readings of the open session, of the kinds of a set, are from behind its clearing.
Resultado<> corregirLecturas(Database& db, const Ajustes& ajustes, int grupo, int conjunto,
                             const dao::Valor& cambio, const std::optional<Fecha>& desde) {
  for (const ClaseTotal& c : enVigor(ajustes)) {
    if (conjuntoDe(c.numero) != conjunto) continue;
    const QString marca = CampoSesion(c.numero), dd = CampoDesde(c.numero);
    TARVO_INTENTAR(db.ejecutar(
        QString(
            u"UPDATE Lecturas SET AJUSTE=AJUSTE+? WHERE GRUPO=? AND CLASE=? AND EXISTS (SELECT "_s
            u"1 FROM Sesiones WHERE CODGPO=GRUPO AND "_s +
            marca + u")"_s),
        cambio, grupo, c.numero));
    if (!desde) continue;
    TARVO_INTENTAR(db.ejecutar(
        QString(u"UPDATE Sesiones SET "_s + dd + u"=? WHERE CODGPO=? AND "_s + marca + u" AND ("_s +
                dd + u" IS NULL OR "_s + dd +
                u"<?) AND EXISTS (SELECT 1 FROM Lecturas WHERE GRUPO=CODGPO AND CLASE=? AND LINK "_s
                u"IS NULL)"_s),
        *desde, grupo, *desde, c.numero));
  }
  return {};
}

Resultado<> darPorBorrada(Database& db, const Ajustes& ajustes, const Parte& p, const Nota& n,
                          qint64 cambio) {
  TARVO_INTENTAR(olvidarParte(db, p, u"0"_s));
  TARVO_INTENTAR(db.ejecutar(
      u"UPDATE CerosParte SET HECHO=INTENCION, SEC_HECHO=SEC_INTENCION, QUITADO=TOTAL WHERE GRUPO=? "_s
      u"AND ADDR=? AND CONJUNTO=? AND SEC_HECHO<SEC_INTENCION"_s,
      p.grupo, p.addr, p.conjunto));
  return corregirLecturas(db, ajustes, p.grupo, p.conjunto,
                          n.total ? dao::Valor(cambio) : dao::Valor(),
                          n.pendiente() ? std::optional(n.anunciada) : std::nullopt);
}

Resultado<> aplicar(Database& db, const Ajustes& ajustes, const Textos& textos, int grupo,
                    const Salida& s, std::map<int, Nota>& notas, const std::set<int>& dudosos,
                    std::vector<Aviso>& avisos) {
  if (s.todo) {
    TARVO_INTENTAR(darPorOlvidadas(db, ajustes, grupo, {s.addr}, textos, avisos));
    for (int c = 1; c <= kConjuntos; ++c)
      TARVO_INTENTAR(
          corregirLecturas(db, ajustes, grupo, c, s.cambio[static_cast<size_t>(c)], std::nullopt));
    TARVO_INTENTAR(
        db.ejecutar(u"DELETE FROM CerosParte WHERE GRUPO=? AND ADDR=?"_s, grupo, s.addr));
    return {};
  }
  for (const int c : s.olvidados)
    TARVO_INTENTAR(
        darPorBorrada(db, ajustes, {grupo, s.addr, c}, notas[c], s.cambio[static_cast<size_t>(c)]));
  for (const int c : dudosos) {
    if (s.olvidados.contains(c)) continue;
    TARVO_INTENTAR(db.ejecutar(
        u"DELETE FROM CerosParte WHERE GRUPO=? AND ADDR=? AND CONJUNTO=? AND SEC_HECHO=0"_s, grupo,
        s.addr, c));
    TARVO_INTENTAR(db.ejecutar(
        u"UPDATE CerosParte SET SEC_INTENCION=SEC_HECHO WHERE GRUPO=? AND ADDR=? AND CONJUNTO=?"_s,
        grupo, s.addr, c));
  }
  return {};
}

void decir(int grupo, const Textos& textos, TextoTotals cual, bool grave,
           std::vector<Aviso>& avisos) {
  avisos.push_back({grupo, textos(cual, {grupo}), grave});
}

}  // namespace

Resultado<bool> resolverPartes(Database& db, const Ajustes& ajustes, const Textos& textos,
                               int grupo, std::vector<Aviso>& avisos) {
  TARVO_TOMAR(auto notas, leerNotas(db, grupo));
  if (notas.empty()) return true;
  TARVO_TOMAR(const auto indicios, leerIndicios(db, ajustes, grupo, notas));
  if (indicios.empty()) return true;
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db));
  TARVO_TOMAR(const auto via, decidir(db, ajustes, grupo, indicios, notas));
  if (!via) {
    TARVO_INTENTAR(dejarFuera(db, ajustes, grupo));
    TARVO_INTENTAR(tr.confirmar());
    decir(grupo, textos, kTxCeroSinSaber, true, avisos);
    return false;
  }
  bool borrado = false;
  for (const Salida& s : *via) {
    TARVO_INTENTAR(
        aplicar(db, ajustes, textos, grupo, s, notas[s.addr], indicios.at(s.addr).dudosos, avisos));
    borrado = borrado || !s.olvidados.empty();
  }
  TARVO_INTENTAR(tr.confirmar());
  if (borrado) decir(grupo, textos, kTxCeroAMedias, false, avisos);
  return true;
}

}  // namespace tarvo::totals
