// What a session's readings show of unrecorded zeroings, and of orders to forget that may not have
// been heard: machine by machine, by all its counters.
#include <algorithm>
#include <iterator>
#include <map>
#include <set>

#include "totals/TextosTotals.h"
#include "totals/libros/Bajas.h"
#include "totals/libros/BasesInterior.h"
#include "totals/libros/Canjes.h"
#include "totals/libros/Confirmados.h"
#include "totals/libros/Dudas.h"
#include "totals/libros/Memoria.h"
#include "totals/libros/Partes.h"
#include "totals/libros/SesionInterior.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

using dao::conMarcas;
using dao::Database;

// A statement on the zeroings that may not have been heard: {sinConfirmar}. A reading can only show
// one that was begun before it.
QString sobreCeros(QStringView sentencia) {
  return conMarcas(sentencia, {{u"sinConfirmar",
                                u"SEC_HECHO<SEC_INTENCION AND SEC_INTENCION<(SELECT MAX(SEC) FROM "
                                u"Lecturas WHERE Lecturas.GRUPO=Ceros.GRUPO)"_s}});
}

// Since when the machine has counted afresh: the unconfirmed zeroing, else the memorised reading.
Resultado<Fecha> momentoDelCero(Database& db, int grupo, int addr, bool& anunciado) {
  TARVO_TOMAR(auto rs,
              db.consultar(sobreCeros(u"SELECT INTENCION FROM Ceros WHERE GRUPO=? AND ADDR=? AND "
                                      u"{sinConfirmar}"),
                           grupo, addr));
  anunciado = !rs->Eof();
  if (anunciado) return rs->fecha(0);
  TARVO_TOMAR(
      const auto hasta,
      db.uno(u"SELECT MAX(COALESCE(BASE_ANTIGUA, BASE_HASTA)) FROM Lecturas WHERE GRUPO=?"_s,
             grupo));
  return hasta.fecha();
}

// The machine has forgotten: none of its counters is memorised any more, in any kind.
Resultado<> olvidar(Database& db, int grupo, int addr) {
  for (const ClaseTotal& c : todasLasClases()) TARVO_INTENTAR(apartarBase(db, grupo, c.tipo));
  TARVO_INTENTAR(db.ejecutar(u"DELETE FROM BaseFilas WHERE GRUPO=? AND ADDR=?"_s, grupo, addr));
  TARVO_INTENTAR(
      db.ejecutar(sobreCeros(u"UPDATE Ceros SET HECHO=INTENCION, SEC_HECHO=SEC_INTENCION WHERE "
                             u"GRUPO=? AND ADDR=? AND {sinConfirmar}"),
                  grupo, addr));
  return olvidarBajas(db, grupo, addr);
}

// Counters of other machines that are zero in every kind are no memorised part. While any is left,
// each kind counts from the memorised reading, also one that has nothing left: all of it is new.
Resultado<> fecharCero(Database& db, const Ajustes& ajustes, int grupo, Fecha cuando) {
  TARVO_TOMAR(const auto queda,
              db.uno(u"SELECT count(*) FROM BaseFilas WHERE GRUPO=? AND (CON<>0 OR PES<>0 OR "_s
                     u"IMP<>0 OR SCO<>0)"_s,
                     grupo));
  if (queda.entero() > 0) return {};
  TARVO_INTENTAR(db.ejecutar(u"DELETE FROM BaseFilas WHERE GRUPO=?"_s, grupo));
  TARVO_INTENTAR(
      db.ejecutar(u"UPDATE Lecturas SET LINK=NULL, BASE_DESDE=NULL, BASE_HASTA=NULL, "_s
                  u"BASE_ANTIGUA=NULL, APARTE=0 WHERE GRUPO=?"_s,
                  grupo));
  TARVO_INTENTAR(
      db.ejecutar(u"UPDATE Sesiones SET PZERO=? WHERE CODGPO=? AND (PZERO IS NULL OR PZERO<?)"_s,
                  cuando, grupo, cuando));
  for (const ClaseTotal& c : enVigor(ajustes))
    TARVO_INTENTAR(
        db.ejecutar(conMarcas(u"UPDATE Sesiones SET {desde}=? WHERE CODGPO=? AND {enSesion} AND "
                              u"({desde} IS NULL OR {desde}<?)",
                              {{u"desde", CampoDesde(c.tipo)}, {u"enSesion", CampoSesion(c.tipo)}}),
                    cuando, grupo, cuando));
  return {};
}

// The kinds received from a group in the open session, with the sum of their amounts; the amount of
// a separately cleared kind is added back.
Resultado<std::multimap<qint64, TipoTotal>> sumasRecibidas(Database& db, const Ajustes& ajustes,
                                                           int grupo) {
  std::multimap<qint64, TipoTotal> sumas;
  for (const ClaseTotal& c : enVigor(ajustes)) {
    TARVO_TOMAR(
        auto rs,
        db.consultar(
            conMarcas(u"SELECT COALESCE(SUM(IMP),0)+COALESCE((SELECT AJUSTE FROM Lecturas WHERE "
                      u"Lecturas.GRUPO=CODGPO AND CLASE=?),0) FROM Sesiones LEFT JOIN {tabla} t ON "
                      u"t.GRUPO=CODGPO AND t.LINK=0 WHERE CODGPO=? AND {enSesion} GROUP BY CODGPO",
                      {{u"tabla", NombreTabla(c.tipo)}, {u"enSesion", CampoSesion(c.tipo)}}),
            numeroDe(c.tipo), grupo));
    if (!rs->Eof()) sumas.emplace(rs->entero(0), c.tipo);
  }
  return sumas;
}

// A faulty reading may be too low. So a kind is evidence only when another kind of the same session
// has the same amount, or when no other was ever memorised. Nothing when no two agree: there is no
// telling then.
Resultado<std::optional<std::set<TipoTotal>>> clasesFiables(Database& db, const Ajustes& ajustes,
                                                            int grupo) {
  TARVO_TOMAR(const auto sumas, sumasRecibidas(db, ajustes, grupo));
  TARVO_TOMAR(const auto memorizadas,
              db.uno(u"SELECT count(*) FROM Lecturas WHERE GRUPO=? AND LINK IS NOT NULL"_s, grupo));
  const bool sola = sumas.size() < 2 && memorizadas.entero() < 2;
  std::set<TipoTotal> fiables;
  for (const auto& [suma, clase] : sumas)
    if (sola || sumas.count(suma) > 1) fiables.insert(clase);
  return fiables.empty() ? std::nullopt : std::optional(fiables);
}

// Machines of the group that were told to forget before they were read and may not have heard it,
// or were lower in an earlier reading that nobody judged.
Resultado<std::set<int>> conSospecha(Database& db, const Ajustes& ajustes, int grupo) {
  TARVO_TOMAR(auto addrs, conBajas(db, ajustes, grupo));
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(sobreCeros(u"SELECT ADDR FROM Ceros WHERE GRUPO=? AND {sinConfirmar}"), grupo),
      [&](const dao::Recordset& fila) { addrs.insert(static_cast<int>(fila.entero(0))); }));
  return addrs;
}

// Is every memorised kind of the group in the session?
Resultado<bool> todasReleidas(Database& db, const std::vector<Releida>& lista, int grupo) {
  TARVO_TOMAR(
      const auto memorizadas,
      db.uno(
          u"SELECT count(*) FROM Lecturas WHERE GRUPO=? AND LINK IS NOT NULL AND BASE_DUDOSA=0"_s,
          grupo));
  return std::ranges::count(lista, grupo, &Releida::grupo) >= memorizadas.entero();
}

struct Sentencia {
  std::set<int> olvidadas, guardan;
  std::map<int, Testimonios> dudosas;
  bool todas = true;
};

// The machines of a group, except those that were told only a part.
Resultado<Sentencia> sentenciar(Database& db, const Ajustes& ajustes,
                                const std::vector<Releida>& lista, int grupo,
                                const std::map<int, Testimonios>& testimonios) {
  TARVO_TOMAR(const auto aparte, maquinasAMedias(db, grupo));
  TARVO_TOMAR(const auto sospechosas, conSospecha(db, ajustes, grupo));
  Sentencia s;
  TARVO_TOMAR(s.todas, todasReleidas(db, lista, grupo));
  for (const auto& [addr, t] : testimonios) {
    if (aparte.contains(addr)) continue;
    TARVO_TOMAR(const auto dicho, respuestaDe(db, grupo, addr));
    TARVO_TOMAR(const bool espera, preguntada(db, grupo, addr));
    Veredicto v = dicho ? (*dicho ? Veredicto::Olvido : Veredicto::Guarda)
                        : juzgar(t, sospechosas.contains(addr), s.todas);
    if (espera && !quietos(t)) v = Veredicto::Duda;  // sales since then are no answer
    if (v == Veredicto::Olvido) s.olvidadas.insert(addr);
    if (v == Veredicto::Guarda) s.guardan.insert(addr);
    if (v == Veredicto::Duda) s.dudosas[addr] = t;
  }
  return s;
}

// Whether there is evidence about all machines of the group once the kinds that are none are taken
// out of it.
Resultado<bool> dejarLasFiables(Database& db, const Ajustes& ajustes, int grupo,
                                std::map<int, Testimonios>& testimonios) {
  if (std::ranges::none_of(testimonios, [](const auto& m) { return algunaBaja(m.second); }))
    return true;
  TARVO_TOMAR(const auto fiables, clasesFiables(db, ajustes, grupo));
  if (!fiables) return false;
  for (auto& [addr, t] : testimonios)
    std::erase_if(t, [&](const auto& x) { return !fiables->contains(x.first); });
  return std::ranges::none_of(testimonios, [](const auto& m) { return m.second.empty(); });
}

// More may have been memorised of this group than its machines held, and we didn't zero it: lower
// counters prove no zeroing. But somebody may have zeroed it by hand, which only a person can tell.
Resultado<> resolverSinCuadre(Database& db, const Ajustes& ajustes, const Textos& textos, int grupo,
                              const std::map<int, Testimonios>& testimonios,
                              std::vector<Aviso>& avisos) {
  TARVO_TOMAR(const auto aparte, maquinasAMedias(db, grupo));
  TARVO_TOMAR(const auto bajaron, conBajas(db, ajustes, grupo));
  std::set<int> olvidadas;
  std::map<int, Testimonios> dudosas;
  for (const auto& [addr, t] : testimonios) {
    if (aparte.contains(addr)) continue;
    TARVO_TOMAR(const auto dicho, respuestaDe(db, grupo, addr));
    TARVO_TOMAR(const bool espera, preguntada(db, grupo, addr));
    if (dicho && *dicho) olvidadas.insert(addr);
    const bool motivo = masQueDevoluciones(t) || bajaron.contains(addr) || espera;
    if (!dicho && motivo && !quietos(t)) dudosas[addr] = t;
    if (!dudosas.contains(addr)) TARVO_INTENTAR(olvidarBajas(db, grupo, addr));
  }
  TARVO_INTENTAR(darPorOlvidadas(db, ajustes, grupo, olvidadas, textos, avisos));
  if (dudosas.empty()) return cerrarDudas(db, grupo);
  return abrirDudas(db, ajustes, textos, grupo, dudosas, avisos);
}

Resultado<> resolverGrupo(Database& db, const Ajustes& ajustes, const Textos& textos,
                          const std::vector<Releida>& todas, int grupo,
                          std::vector<Aviso>& avisos) {
  std::vector<Releida> lista;
  std::ranges::copy_if(todas, std::back_inserter(lista),
                       [grupo](const Releida& r) { return r.grupo == grupo && !r.sinCuadre; });
  if (lista.empty()) {
    TARVO_TOMAR(const auto testimonios, testimoniosDeGrupo(db, todas, grupo));
    return resolverSinCuadre(db, ajustes, textos, grupo, testimonios, avisos);
  }
  TARVO_TOMAR(const auto enParte, anotarBorradasEnParte(db, textos, grupo, lista, avisos));
  if (enParte == EnParte::Si) return resolverBasesDe(db, ajustes, textos, grupo, avisos);
  TARVO_TOMAR(auto testimonios, testimoniosDeGrupo(db, lista, grupo));
  TARVO_TOMAR(const bool hay, dejarLasFiables(db, ajustes, grupo, testimonios));
  if (!hay || enParte == EnParte::TalVez) {
    avisos.push_back({grupo, textos(kTxBajaronSinCuadrar, {grupo}), true});
    return dejarFuera(db, ajustes, grupo);
  }
  TARVO_TOMAR(const auto s, sentenciar(db, ajustes, lista, grupo, testimonios));
  for (const int addr : s.guardan) {  // the announced zeroing did not happen
    TARVO_INTENTAR(db.ejecutar(
        sobreCeros(u"DELETE FROM Ceros WHERE GRUPO=? AND ADDR=? AND {sinConfirmar}"), grupo, addr));
    TARVO_INTENTAR(olvidarBajas(db, grupo, addr));
  }
  TARVO_INTENTAR(darPorOlvidadas(db, ajustes, grupo, s.olvidadas, textos, avisos));
  if (s.dudosas.empty()) return cerrarDudas(db, grupo);
  if (s.todas) return abrirDudas(db, ajustes, textos, grupo, s.dudosas, avisos);
  avisos.push_back({grupo, textos(kTxCeroSinSaber, {grupo}), true});
  return dejarFuera(db, ajustes, grupo);
}

}  // namespace

Resultado<> darPorOlvidadas(Database& db, const Ajustes& ajustes, int grupo,
                            const std::set<int>& addrs, const Textos& textos,
                            std::vector<Aviso>& avisos) {
  for (const int addr : addrs) {
    bool anunciado = false;
    TARVO_TOMAR(const auto cuando, momentoDelCero(db, grupo, addr, anunciado));
    TARVO_INTENTAR(olvidar(db, grupo, addr));
    TARVO_INTENTAR(fecharCero(db, ajustes, grupo, cuando));
    avisos.push_back({grupo, textos(kTxDadoPorCero, {grupo, cuando.general()}), !anunciado});
  }
  return {};
}

Resultado<> quitarDeLasBases(Database& db, const Ajustes& ajustes, int grupo, int addr) {
  for (const ClaseTotal& c : todasLasClases()) TARVO_INTENTAR(apartarBase(db, grupo, c.tipo));
  TARVO_TOMAR(const auto suyas,
              db.uno(u"SELECT count(*) FROM BaseFilas WHERE GRUPO=? AND ADDR=?", grupo, addr));
  if (suyas.entero() == 0) return {};
  bool anunciado = false;
  TARVO_TOMAR(const auto cuando, momentoDelCero(db, grupo, addr, anunciado));
  TARVO_INTENTAR(olvidar(db, grupo, addr));
  return fecharCero(db, ajustes, grupo, cuando);
}

Resultado<> resolverBasesDe(Database& db, const Ajustes& ajustes, const Textos& textos, int grupo,
                            std::vector<Aviso>& avisos) {
  TARVO_TOMAR(const auto sabido, resolverPartes(db, ajustes, textos, grupo, avisos));
  if (!sabido) return {};
  TARVO_TOMAR(const auto mostrado, resolverConfirmados(db, ajustes, textos, grupo, avisos));
  if (!mostrado) return {};
  TARVO_TOMAR(const auto lista, releidas(db, ajustes));
  if (std::ranges::find(lista, grupo, &Releida::grupo) == lista.end()) return {};
  return resolverGrupo(db, ajustes, textos, lista, grupo, avisos);
}

Resultado<> resolverBases(Database& db, const Ajustes& ajustes, const Textos& textos,
                          std::vector<Aviso>& avisos) {
  TARVO_TOMAR(auto fuera, seguirMaquinas(db, ajustes, textos, avisos));
  TARVO_TOMAR(const auto aMedias, gruposAMedias(db));
  for (const int grupo : aMedias) {
    if (fuera.contains(grupo)) continue;
    TARVO_TOMAR(const auto sabido, resolverPartes(db, ajustes, textos, grupo, avisos));
    if (!sabido) fuera.insert(grupo);
  }
  TARVO_TOMAR(const auto confirmados, gruposConConfirmados(db));
  for (const int grupo : confirmados) {
    if (fuera.contains(grupo)) continue;
    TARVO_TOMAR(const auto mostrado, resolverConfirmados(db, ajustes, textos, grupo, avisos));
    if (!mostrado) fuera.insert(grupo);
  }
  TARVO_TOMAR(const auto lista, releidas(db, ajustes));
  std::set<int> grupos;
  for (const Releida& r : lista) grupos.insert(r.grupo);
  for (const int grupo : grupos)
    if (!fuera.contains(grupo))
      TARVO_INTENTAR(resolverGrupo(db, ajustes, textos, lista, grupo, avisos));
  return cerrarDudasSinBase(db);
}

}  // namespace tarvo::totals
