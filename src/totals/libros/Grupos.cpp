#include "totals/libros/Grupos.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "core/dao/Marcas.h"
#include "core/dao/Recorrido.h"
#include "totals/libros/Accesos.h"
#include "totals/libros/BasesInterior.h"
#include "totals/libros/Sesion.h"
#include "totals/periodos/Clases.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

std::vector<TablaDeGrupo> tablasDeGrupo() {
  std::vector<TablaDeGrupo> tablas;
  for (const QString& t :
       {u"Lecturas"_s, u"LectFilas"_s, u"BaseFilas"_s, u"CeroFilas"_s, u"Ceros"_s, u"CerosParte"_s,
        u"CerosClase"_s, u"Dudas"_s, u"Olvidos"_s, u"Bajas"_s})
    tablas.push_back({t, {}});
  for (const ClaseTotal& c : todasLasClases())
    tablas.push_back({NombreTabla(c.tipo), u"LINK=0 AND "_s});
  return tablas;
}

Resultado<> olvidarGrupo(dao::Database& db, int grupo) {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db));
  TARVO_INTENTAR(dejarSueltas(db, grupo));
  for (const TablaDeGrupo& t : tablasDeGrupo())
    TARVO_INTENTAR(db.ejecutar(dao::conMarcas(u"DELETE FROM {tabla} WHERE {donde}GRUPO=?",
                                              {{u"tabla", t.tabla}, {u"donde", t.donde}}),
                               grupo));
  TARVO_INTENTAR(db.ejecutar(u"DELETE FROM Sesiones WHERE CODGPO=?"_s, grupo));
  return tr.confirmar();
}

namespace {

using dao::conMarcas;
using dao::Database;

// Where a register is known by its address.
const QStringList kPorDireccion{u"LectFilas"_s,  u"BaseFilas"_s,  u"CeroFilas"_s, u"Ceros"_s,
                                u"CerosParte"_s, u"CerosClase"_s, u"Dudas"_s,     u"Bajas"_s};

// The code of a grand total is its group's.
Resultado<> cambiarCodigoEn(Database& db, QStringView tabla, int antes, int ahora) {
  const auto enTabla = [tabla](QStringView sentencia) {
    return conMarcas(sentencia, {{u"tabla", tabla.toString()}});
  };
  TARVO_INTENTAR(
      db.ejecutar(enTabla(u"UPDATE {tabla} SET CODI=? WHERE GRUPO IN (?, ?) AND CLASE=? AND "
                          u"CODI=?"),
                  ahora, antes, ahora, numeroDe(TipoTotal::GranTotal), antes));
  TARVO_INTENTAR(db.ejecutar(enTabla(u"UPDATE {tabla} SET GRUPO=? WHERE GRUPO=?"), ahora, antes));
  return {};
}

Resultado<> cambiarPeriodos(Database& db, const ClaseTotal& c, int antes, int ahora) {
  const auto suyas = [&c](QStringView sentencia) {
    return conMarcas(sentencia,
                     {{u"tabla", NombreTabla(c.tipo)},
                      {u"claves", clavesDe(c)},
                      {u"resto", c.conHora ? u"CODI, HORA"_s : u"CODI"_s},
                      {u"sumando",
                       u"CON=CON+excluded.CON, PES=PES+excluded.PES, [IMP]=[IMP]+excluded.[IMP], "
                       u"SCO=SCO+excluded.SCO"_s}});
  };
  TARVO_INTENTAR(db.ejecutar(suyas(u"INSERT INTO {tabla} (LINK, {claves}, CON, PES, [IMP], SCO) "
                                   u"SELECT LINK, ?, {resto}, CON, PES, [IMP], SCO FROM {tabla} "
                                   u"WHERE GRUPO=? AND LINK<>0 ON CONFLICT (LINK, {claves}) DO "
                                   u"UPDATE SET {sumando}"),
                             ahora, antes));
  TARVO_INTENTAR(db.ejecutar(suyas(u"DELETE FROM {tabla} WHERE GRUPO=? AND LINK<>0"), antes));
  return {};
}

}  // namespace

Resultado<> cambiarCodigo(Database& db, int antes, int ahora) {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db));
  // Those of the inbox have moved, those of the periods are about to.
  TARVO_INTENTAR(
      db.ejecutar(u"UPDATE TOTGRT SET CODI=? WHERE CODI=? AND (GRUPO=? OR (GRUPO=? AND LINK=0))",
                  ahora, antes, antes, ahora));
  for (const ClaseTotal& c : todasLasClases()) TARVO_INTENTAR(cambiarPeriodos(db, c, antes, ahora));
  for (const QStringView tabla : {u"LectFilas", u"BaseFilas", u"CeroFilas", u"TotSusti",
                                  u"PapeleraFilas", u"PapeleraTotSusti", u"PapeleraSuma"})
    TARVO_INTENTAR(cambiarCodigoEn(db, tabla, antes, ahora));
  for (const QStringView orden :
       {u"UPDATE Origenes SET GRUPO=? WHERE GRUPO=?",
        u"UPDATE PapeleraOrig SET GRUPO=? WHERE GRUPO=?", u"UPDATE Dudas SET DE=? WHERE DE=?"})
    TARVO_INTENTAR(db.ejecutar(orden, ahora, antes));
  return tr.confirmar();
}

// By way of numbers that no address has, since one may get another's.
Resultado<> cambiarDirecciones(Database& db, int grupo, const std::map<int, int>& nuevas) {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db));
  const auto poner = [&](const QString& tabla, int de, int a) -> Resultado<> {
    TARVO_INTENTAR(db.ejecutar(
        conMarcas(u"UPDATE {tabla} SET ADDR=? WHERE GRUPO=? AND ADDR=?", {{u"tabla", tabla}}), a,
        grupo, de));
    return {};
  };
  const auto aparte = [](int direccion) { return -1 - direccion; };
  for (const QString& tabla : kPorDireccion + QStringList{u"Lecturas"_s}) {
    for (const auto& [de, a] : nuevas) TARVO_INTENTAR(poner(tabla, de, aparte(de)));
    for (const auto& [de, a] : nuevas) TARVO_INTENTAR(poner(tabla, aparte(de), a));
  }
  return tr.confirmar();
}

Resultado<> olvidarCaja(Database& db, const Ajustes& ajustes, int grupo, int addr) {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db));
  TARVO_INTENTAR(quitarDeLasBases(db, ajustes, grupo, addr));
  for (const QString& tabla : kPorDireccion)
    TARVO_INTENTAR(
        db.ejecutar(conMarcas(u"DELETE FROM {tabla} WHERE GRUPO=? AND ADDR=?", {{u"tabla", tabla}}),
                    grupo, addr));
  TARVO_INTENTAR(quitarDelAcceso(db, grupo, addr));
  return tr.confirmar();
}

namespace {

using Direcciones = std::map<int, std::set<int>>;  // by group

Resultado<Direcciones> direccionesDe(Database& db, QStringView deCajas) {
  Direcciones d;
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(deCajas, numeroDe(TipoGrupo::Registradoras)), [&d](const dao::Recordset& f) {
        d[static_cast<int>(f.entero(0))].insert(static_cast<int>(f.entero(1)));
      }));
  return d;
}

std::set<int> menos(const std::set<int>& a, const std::set<int>& b) {
  std::set<int> resto;
  std::ranges::set_difference(a, b, std::inserter(resto, resto.end()));
  return resto;
}

}  // namespace

Resultado<> seguirCajas(Database& db, const Ajustes& ajustes, Sesion& sesion) {
  TARVO_TOMAR(const auto sabidas,
              direccionesDe(db,
                            u"SELECT x.GRUPO, x.ADDR FROM (SELECT GRUPO, ADDR FROM BaseFilas "
                            u"UNION SELECT GRUPO, ADDR FROM Ceros) x JOIN GRUPOS g ON "
                            u"g.CODGPO=x.GRUPO WHERE g.tipo=?"));
  TARVO_TOMAR(const auto todas,
              direccionesDe(db,
                            u"SELECT b.SUGPO, COALESCE(b.Addr, 0) FROM BZAS b JOIN GRUPOS g ON "
                            u"g.CODGPO=b.SUGPO WHERE g.tipo=?"));
  for (const auto& [grupo, antes] : sabidas) {
    const auto estan = todas.find(grupo);
    if (estan == todas.end()) continue;
    const auto idas = menos(antes, estan->second), nuevas = menos(estan->second, antes);
    if (idas.empty()) continue;
    TARVO_TOMAR(const auto sinPeriodo, sesion.sinPeriodo(grupo));
    if (sinPeriodo.value_or(0) != 0) continue;
    if (idas.size() == 1 && nuevas.size() == 1)
      TARVO_INTENTAR(cambiarDirecciones(db, grupo, {{*idas.begin(), *nuevas.begin()}}));
    if (!nuevas.empty()) continue;
    for (const int addr : idas) TARVO_INTENTAR(olvidarCaja(db, ajustes, grupo, addr));
  }
  return {};
}

}  // namespace tarvo::totals
