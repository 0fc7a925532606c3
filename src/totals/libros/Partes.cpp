#include "totals/libros/Partes.h"

#include "totals/libros/SesionInterior.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

using dao::Database;

Resultado<> ponerEnDuda(Database& db, int grupo, int addr) {
  for (const ClaseTotal& c : todasLasClases())
    TARVO_INTENTAR(
        db.ejecutar(u"INSERT INTO CerosClase (GRUPO, ADDR, CLASE, DUDA) VALUES (?, ?, ?, 1) "_s
                    u"ON CONFLICT (GRUPO, ADDR, CLASE) DO UPDATE SET DUDA=1"_s,
                    grupo, addr, numeroDe(c.tipo)));
  return {};
}

Resultado<> anunciarParte(Database& db, Parte p, qint64 ejecucion, Fecha ahora, qint64 sec) {
  // The first frame starts afresh.
  if (p.conjunto == 1)
    TARVO_INTENTAR(
        db.ejecutar(u"DELETE FROM CerosParte WHERE GRUPO=? AND ADDR=?"_s, p.grupo, p.addr));
  TARVO_INTENTAR(db.ejecutar(
      u"INSERT INTO CerosParte (GRUPO, ADDR, CONJUNTO, EJECUCION, INTENCION, SEC_INTENCION) VALUES "_s
      u"(?, ?, ?, ?, ?, ?) ON CONFLICT (GRUPO, ADDR, CONJUNTO) DO UPDATE SET "_s
      u"EJECUCION=excluded.EJECUCION, INTENCION=excluded.INTENCION, "_s
      u"SEC_INTENCION=excluded.SEC_INTENCION"_s,
      p.grupo, p.addr, p.conjunto, ejecucion, ahora, sec));
  return ponerEnDuda(db, p.grupo, p.addr);
}

Resultado<> confirmarParte(Database& db, Parte p, qint64 ejecucion, Fecha cuando, qint64 sec) {
  TARVO_INTENTAR(db.ejecutar(
      u"INSERT INTO CerosParte (GRUPO, ADDR, CONJUNTO, EJECUCION, SEC_INTENCION, HECHO, SEC_HECHO) "_s
      u"VALUES (?, ?, ?, ?, ?, ?, ?) ON CONFLICT (GRUPO, ADDR, CONJUNTO) DO UPDATE SET "_s
      u"EJECUCION=excluded.EJECUCION, HECHO=excluded.HECHO, SEC_HECHO=excluded.SEC_HECHO"_s,
      p.grupo, p.addr, p.conjunto, ejecucion, sec, cuando, sec));
  return {};
}

Resultado<> desmentirPartes(Database& db, int grupo, int addr, std::optional<TipoTotal> intacta) {
  TARVO_INTENTAR(
      db.ejecutar(u"UPDATE CerosParte SET SEC_HECHO=-1 WHERE GRUPO=? AND ADDR=?"_s, grupo, addr));
  if (intacta)
    TARVO_INTENTAR(
        db.ejecutar(u"UPDATE CerosClase SET DUDA=0 WHERE GRUPO=? AND ADDR=? AND CLASE=?"_s, grupo,
                    addr, numeroDe(*intacta)));
  return {};
}

Resultado<> olvidarClase(Database& db, int grupo, int addr, TipoTotal tipo) {
  TARVO_INTENTAR(apartarBase(db, grupo, tipo));
  TARVO_INTENTAR(db.ejecutar(u"DELETE FROM BaseFilas WHERE GRUPO=? AND CLASE=? AND ADDR=?"_s, grupo,
                             numeroDe(tipo), addr));
  TARVO_INTENTAR(db.ejecutar(
      u"UPDATE Lecturas SET LINK=NULL, APARTE=0 WHERE GRUPO=? "_s
      u"AND CLASE=? AND NOT EXISTS (SELECT 1 FROM BaseFilas WHERE BaseFilas.GRUPO=Lecturas.GRUPO AND "_s
      u"BaseFilas.CLASE=Lecturas.CLASE)"_s,
      grupo, numeroDe(tipo)));
  return {};
}

Resultado<> olvidarPartes(Database& db, int grupo, int addr) {
  for (const QStringView borrar : {u"DELETE FROM CerosParte WHERE GRUPO=? AND ADDR=?",
                                   u"DELETE FROM CerosClase WHERE GRUPO=? AND ADDR=?"})
    TARVO_INTENTAR(db.ejecutar(borrar, grupo, addr));
  return {};
}

Resultado<> anotarPartes(Database& db, int grupo, const ClaseTotal& c, const Lectura& lectura) {
  QStringList addrs;
  for (const auto& [addr, filas] : lectura.maquinas) addrs << QString::number(addr);
  for (const QStringView borrar :
       {u"DELETE FROM CerosParte WHERE GRUPO=? AND ADDR NOT IN ({addrs})",
        u"DELETE FROM CerosClase WHERE GRUPO=? AND ADDR NOT IN ({addrs})",
        u"DELETE FROM CeroFilas WHERE GRUPO=? AND ADDR NOT IN ({addrs})",
        u"DELETE FROM Bajas WHERE GRUPO=? AND ADDR NOT IN ({addrs})"})
    if (!addrs.isEmpty())
      TARVO_INTENTAR(db.ejecutar(dao::conMarcas(borrar, {{u"addrs", addrs.join(u',')}}), grupo));
  TARVO_INTENTAR(db.ejecutar(
      u"UPDATE Lecturas SET AJUSTE=(SELECT CASE WHEN count(*)=count(QUITADO) THEN "_s
      u"COALESCE(SUM(QUITADO), 0) END FROM CerosClase c WHERE c.GRUPO=Lecturas.GRUPO AND "_s
      u"c.CLASE=Lecturas.CLASE) WHERE GRUPO=? AND CLASE=?"_s,
      grupo, numeroDe(c.tipo)));
  return {};
}

namespace {

Resultado<std::set<int>> numeros(dao::Abierta filas) {
  std::set<int> lista;
  TARVO_INTENTAR(dao::recorrer(std::move(filas), [&](const dao::Recordset& fila) {
    lista.insert(static_cast<int>(fila.entero(0)));
  }));
  return lista;
}

}  // namespace

Resultado<std::set<int>> gruposAMedias(Database& db) {
  return numeros(db.consultar(u"SELECT DISTINCT GRUPO FROM CerosClase"_s));
}

Resultado<std::set<int>> maquinasAMedias(Database& db, int grupo) {
  return numeros(db.consultar(u"SELECT DISTINCT ADDR FROM CerosClase WHERE GRUPO=?"_s, grupo));
}

Resultado<std::optional<Contadores>> granTotalLeido(Database& db, int grupo, int addr) {
  TARVO_TOMAR(
      auto rs,
      db.consultar(
          dao::conMarcas(u"SELECT MAQUINAS FROM Lecturas WHERE GRUPO=? AND CLASE=? AND ESTADO=2 "
                         u"AND {trasElCero}",
                         {{u"trasElCero", QString::fromUtf16(kTrasElCero)}}),
          grupo, numeroDe(TipoTotal::GranTotal), addr));
  if (rs->Eof()) return std::nullopt;
  const bool varias = rs->entero(0) > 1;
  TARVO_TOMAR(
      auto base,
      varias
          ? db.consultar(
                u"SELECT SUM(CON), SUM(IMP), SUM(PES) FROM LectFilas WHERE GRUPO=? AND CLASE=? AND "_s
                u"ADDR=?"_s,
                grupo, numeroDe(TipoTotal::GranTotal), addr)
          : db.consultar(
                u"SELECT SUM(CON), SUM(IMP), SUM(PES) FROM TOTGRT WHERE LINK=0 AND GRUPO=?"_s,
                grupo));
  return Contadores{.CON = base->entero(0), .PES = base->entero(2), .IMP = base->entero(1)};
}

}  // namespace tarvo::totals
