// What the readings of a session show of zeroings that nobody wrote down. A counter only goes down
// when its machine forgets: a machine of which some count of sales is lower than the one memorised
// has been zeroed, in all its kinds of total.
#include <algorithm>
#include <map>
#include <set>

#include "totals/TextosTotals.h"
#include "totals/libros/BasesInterior.h"
#include "totals/libros/Memoria.h"
#include "totals/libros/Partes.h"
#include "totals/libros/SesionInterior.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

using dao::Database;

QString textoDe(const char16_t* s) {
  return QString::fromUtf16(s);
}

}  // namespace

Resultado<std::vector<Releida>> releidas(Database& db, const Ajustes& ajustes) {
  std::vector<Releida> lista;
  for (const ClaseTotal& c : enVigor(ajustes)) {
    TARVO_TOMAR(
        auto rs,
        db.consultar(
            QString(
                u"SELECT GRUPO, MAQUINAS, ENTERA, ADDR, SEC FROM Lecturas, Sesiones WHERE CODGPO=GRUPO AND "_s
                u"CLASE=? AND LINK IS NOT NULL AND APARTE=1 AND BASE_DUDOSA=0 AND "_s +
                textoDe(c.sesion) + u" ORDER BY GRUPO"_s),
            c.numero));
    for (; !rs->Eof();) {
      lista.push_back({static_cast<int>(rs->entero(0)), &c, rs->entero(1) > 1, rs->logico(2),
                       rs->entero(3), rs->entero(4)});
      TARVO_INTENTAR(rs->MoveNext());
    }
  }
  return lista;
}

Resultado<std::set<int>> bajaron(Database& db, const Releida& r) {
  const QString hora = r.varias           ? u"n.HORA=b.HORA"_s
                       : r.clase->conHora ? u"n.HORA=b.HORA"_s
                                          : u"1=1"_s;
  const QString nuevas = r.varias
                             ? u"LectFilas n ON n.GRUPO=b.GRUPO AND n.CLASE=b.CLASE AND "_s
                               u"n.ADDR=b.ADDR AND n.CODI=b.CODI "_s
                               u"AND "_s
                             : textoDe(r.clase->tabla) +
                                   u" n ON n.LINK=0 AND n.GRUPO=b.GRUPO AND n.CODI=b.CODI AND "_s;
  QString sql = u"SELECT DISTINCT b.ADDR FROM BaseFilas b LEFT JOIN "_s + nuevas + hora +
                u" WHERE b.GRUPO=? AND b.CLASE=? AND COALESCE(n.CON,0)<b.CON"_s;
  if (!r.entera) sql += u" AND n.CON IS NOT NULL"_s;
  if (!r.varias) sql += u" AND b.ADDR="_s + QString::number(r.addr);
  TARVO_TOMAR(auto rs, db.consultar(sql, r.grupo, r.clase->numero));
  std::set<int> addrs;
  for (; !rs->Eof();) {
    addrs.insert(static_cast<int>(rs->entero(0)));
    TARVO_INTENTAR(rs->MoveNext());
  }
  return addrs;
}

namespace {

// What stands in the session can only show a zeroing that was begun before it was read.
const QString kSinConfirmar =
    u"SEC_HECHO<SEC_INTENCION AND SEC_INTENCION<(SELECT MAX(SEC) FROM Lecturas WHERE "_s
    u"Lecturas.GRUPO=Ceros.GRUPO)"_s;

// Since when the machine counts afresh: the zeroing that was begun and not confirmed, else the
// reading that was memorised.
Resultado<Fecha> momentoDelCero(Database& db, int grupo, int addr, bool& anunciado) {
  TARVO_TOMAR(auto rs,
              db.consultar(QString(u"SELECT INTENCION FROM Ceros WHERE GRUPO=? AND ADDR=? AND "_s +
                                   kSinConfirmar),
                           grupo, addr));
  anunciado = !rs->Eof();
  if (anunciado) return rs->fecha(0);
  TARVO_TOMAR(const auto hasta,
              db.uno(u"SELECT MAX(BASE_HASTA) FROM Lecturas WHERE GRUPO=?"_s, grupo));
  return hasta.fecha();
}

// The machine has forgotten: nothing of it is memorised any more, in any kind.
Resultado<> olvidar(Database& db, int grupo, int addr) {
  for (const ClaseTotal& c : todasLasClases()) TARVO_INTENTAR(apartarBase(db, grupo, c.numero));
  TARVO_INTENTAR(db.ejecutar(u"DELETE FROM BaseFilas WHERE GRUPO=? AND ADDR=?"_s, grupo, addr));
  TARVO_INTENTAR(db.ejecutar(QString(u"UPDATE Ceros SET HECHO=INTENCION, SEC_HECHO=SEC_INTENCION "_s
                                     u"WHERE GRUPO=? AND ADDR=? AND "_s +
                                     kSinConfirmar),
                             grupo, addr));
  return {};
}

Resultado<> fecharCero(Database& db, const Ajustes& ajustes, int grupo, Fecha cuando) {
  TARVO_INTENTAR(db.ejecutar(
      u"UPDATE Lecturas SET LINK=NULL, BASE_DESDE=NULL, BASE_HASTA=NULL, APARTE=0 WHERE GRUPO=? "_s
      u"AND NOT EXISTS (SELECT 1 FROM "_s
      u"BaseFilas WHERE BaseFilas.GRUPO=Lecturas.GRUPO AND BaseFilas.CLASE=Lecturas.CLASE)"_s,
      grupo));
  TARVO_TOMAR(const auto queda, db.uno(u"SELECT count(*) FROM BaseFilas WHERE GRUPO=?"_s, grupo));
  if (queda.entero() > 0) return {};
  TARVO_INTENTAR(
      db.ejecutar(u"UPDATE Sesiones SET PZERO=? WHERE CODGPO=? AND (PZERO IS NULL OR PZERO<?)"_s,
                  cuando, grupo, cuando));
  for (const ClaseTotal& c : enVigor(ajustes))
    TARVO_INTENTAR(
        db.ejecutar(QString(u"UPDATE Sesiones SET "_s + textoDe(c.desde) +
                            u"=? WHERE CODGPO=? AND "_s + textoDe(c.sesion) + u" AND ("_s +
                            textoDe(c.desde) + u" IS NULL OR "_s + textoDe(c.desde) + u"<?)"_s),
                    cuando, grupo, cuando));
  return {};
}

// The kinds that the open session received of a group, with the sum of their amounts.
Resultado<std::multimap<qint64, int>> sumasRecibidas(Database& db, const Ajustes& ajustes,
                                                     int grupo) {
  std::multimap<qint64, int> sumas;
  for (const ClaseTotal& c : enVigor(ajustes)) {
    TARVO_TOMAR(auto rs,
                db.consultar(QString(u"SELECT COALESCE(SUM(IMP),0) FROM Sesiones LEFT JOIN "_s +
                                     textoDe(c.tabla) +
                                     u" t ON t.GRUPO=CODGPO AND t.LINK=0 WHERE CODGPO=? AND "_s +
                                     textoDe(c.sesion) + u" GROUP BY CODGPO"_s),
                             grupo));
    if (!rs->Eof()) sumas.emplace(rs->entero(0), c.numero);
  }
  return sumas;
}

// Behind an order that nobody confirmed, counts that did not go down prove that the machine still
// holds what is memorised only when all kinds that are memorised were read again: one article that
// was sold before and not since tells, a grand total may have caught up.
Resultado<bool> seSabe(Database& db, int grupo, const std::vector<Releida>& lista) {
  TARVO_TOMAR(
      const auto dudas,
      db.uno(QString(u"SELECT count(*) FROM Ceros WHERE GRUPO=? AND "_s + kSinConfirmar), grupo));
  if (dudas.entero() == 0) return true;
  TARVO_TOMAR(
      const auto memorizadas,
      db.uno(
          u"SELECT count(*) FROM Lecturas WHERE GRUPO=? AND LINK IS NOT NULL AND BASE_DUDOSA=0"_s,
          grupo));
  return std::ranges::count(lista, grupo, &Releida::grupo) >= memorizadas.entero();
}

}  // namespace

Resultado<> dejarFuera(Database& db, const Ajustes& ajustes, int grupo) {
  for (const ClaseTotal& c : enVigor(ajustes))
    TARVO_INTENTAR(db.ejecutar(
        QString(u"UPDATE Sesiones SET "_s + textoDe(c.sesion) + u"=FALSE WHERE CODGPO=?"_s),
        grupo));
  TARVO_INTENTAR(db.ejecutar(u"UPDATE Lecturas SET ESTADO=4 WHERE GRUPO=? AND ESTADO=2"_s, grupo));
  return {};
}

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

// A reading that went wrong may be lower than it should be. So a kind that went down counts only
// when another kind of the same session has the same amount, or when no other was ever memorised;
// without any two that agree nobody can tell.
Resultado<> resolverBases(Database& db, const Ajustes& ajustes, const Textos& textos,
                          std::vector<Aviso>& avisos) {
  TARVO_TOMAR(const auto lista, releidas(db, ajustes));
  TARVO_TOMAR(const auto aMedias, gruposAMedias(db));
  std::map<int, std::map<int, std::set<int>>> bajadas;  // group, kind, addresses
  for (const Releida& r : lista) {
    if (aMedias.contains(r.grupo)) continue;
    TARVO_TOMAR(const auto addrs, bajaron(db, r));
    if (!addrs.empty()) bajadas[r.grupo][r.clase->numero] = addrs;
  }
  std::set<int> ceros;
  for (const int grupo : aMedias) {
    TARVO_TOMAR(const auto sabido, resolverPartes(db, ajustes, textos, grupo, avisos));
    if (!sabido) ceros.insert(grupo);
  }
  for (const auto& [grupo, clases] : bajadas) {
    TARVO_TOMAR(const auto sumas, sumasRecibidas(db, ajustes, grupo));
    TARVO_TOMAR(
        const auto memorizadas,
        db.uno(u"SELECT count(*) FROM Lecturas WHERE GRUPO=? AND LINK IS NOT NULL"_s, grupo));
    const bool sola = sumas.size() < 2 && memorizadas.entero() < 2;
    bool algunAcuerdo = sola;
    std::set<int> addrs;
    for (const auto& [suma, clase] : sumas) {
      const bool deAcuerdo = sola || sumas.count(suma) > 1;
      algunAcuerdo = algunAcuerdo || deAcuerdo;
      const auto it = clases.find(clase);
      if (deAcuerdo && it != clases.end()) addrs.insert(it->second.begin(), it->second.end());
    }
    if (!algunAcuerdo) {
      TARVO_INTENTAR(dejarFuera(db, ajustes, grupo));
      avisos.push_back({grupo, textos(kTxBajaronSinCuadrar, {grupo}), true});
      ceros.insert(grupo);
    }
    if (!algunAcuerdo || addrs.empty()) continue;
    TARVO_INTENTAR(darPorOlvidadas(db, ajustes, grupo, addrs, textos, avisos));
    ceros.insert(grupo);
  }
  for (const Releida& r : lista) {
    if (ceros.contains(r.grupo) || aMedias.contains(r.grupo)) continue;
    TARVO_TOMAR(const auto sabido, seSabe(db, r.grupo, lista));
    if (sabido) continue;
    TARVO_INTENTAR(dejarFuera(db, ajustes, r.grupo));
    avisos.push_back({r.grupo, textos(kTxCeroSinSaber, {r.grupo}), true});
    ceros.insert(r.grupo);
  }
  // An unconfirmed zeroing of a machine that still holds what was memorised did not happen.
  for (const Releida& r : lista)
    if (!ceros.contains(r.grupo))
      TARVO_INTENTAR(
          db.ejecutar(QString(u"DELETE FROM Ceros WHERE GRUPO=? AND "_s + kSinConfirmar), r.grupo));
  return {};
}

}  // namespace tarvo::totals
