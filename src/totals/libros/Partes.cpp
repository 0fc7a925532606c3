#include "totals/libros/Partes.h"

#include "totals/libros/SesionInterior.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

using dao::Database;

// The amount that a machine has counted since it last forgot everything: what the readings of sets
// that were cleared by themselves are behind of. Null when this run has not read its grand total.
Resultado<dao::Valor> totalContado(Database& db, const Parte& p, qint64 ejecucion) {
  TARVO_TOMAR(
      auto rs,
      db.consultar(
          u"SELECT QUITADO FROM CerosParte WHERE GRUPO=? AND ADDR=? AND EJECUCION=? AND SEC_HECHO>"_s
          u"(SELECT SEC FROM Lecturas WHERE GRUPO=? AND CLASE=?)"_s,
          p.grupo, p.addr, ejecucion, p.grupo, kGranTotal));
  if (!rs->Eof()) return rs->valor(0);
  const auto reciente =
      db.uno(u"SELECT count(*) FROM Lecturas WHERE GRUPO=? AND CLASE=? AND EJECUCION=?"_s, p.grupo,
             kGranTotal, ejecucion);
  const auto leido = granTotalLeido(db, p.grupo, p.addr);
  if (!reciente || !leido) return std::unexpected(reciente ? leido.error() : reciente.error());
  if (reciente->entero() == 0 || !*leido) return dao::Valor();
  TARVO_TOMAR(
      auto antes,
      db.consultar(
          u"SELECT QUITADO FROM CerosParte WHERE GRUPO=? AND ADDR=? AND CONJUNTO=? AND SEC_HECHO>0"_s,
          p.grupo, p.addr, conjuntoDe(kGranTotal)));
  if (antes->Eof()) return dao::Valor((*leido)->IMP);
  if (antes->nulo(0)) return dao::Valor();
  return dao::Valor((*leido)->IMP + antes->entero(0));
}

}  // namespace

int conjuntoDe(int clase) {
  return clase == kPLUs ? 1 : clase == kGranTotal || clase == kDepartamentos ? 2 : 3;
}

Resultado<> anunciarParte(Database& db, Parte p, qint64 ejecucion, Fecha ahora, qint64 sec) {
  TARVO_TOMAR(const auto total, totalContado(db, p, ejecucion));
  TARVO_INTENTAR(db.ejecutar(
      u"INSERT INTO CerosParte (GRUPO, ADDR, CONJUNTO, EJECUCION, INTENCION, SEC_INTENCION, TOTAL) "_s
      u"VALUES (?, ?, ?, ?, ?, ?, ?) ON CONFLICT (GRUPO, ADDR, CONJUNTO) DO UPDATE SET "_s
      u"EJECUCION=excluded.EJECUCION, INTENCION=excluded.INTENCION, "_s
      u"SEC_INTENCION=excluded.SEC_INTENCION, TOTAL=excluded.TOTAL"_s,
      p.grupo, p.addr, p.conjunto, ejecucion, ahora, sec, total));
  return {};
}

Resultado<> confirmarParte(Database& db, Parte p, qint64 ejecucion, Fecha cuando, qint64 sec) {
  TARVO_INTENTAR(db.ejecutar(
      u"INSERT INTO CerosParte (GRUPO, ADDR, CONJUNTO, EJECUCION, SEC_INTENCION, HECHO, SEC_HECHO) "_s
      u"VALUES (?, ?, ?, ?, ?, ?, ?) ON CONFLICT (GRUPO, ADDR, CONJUNTO) DO UPDATE SET "_s
      u"EJECUCION=excluded.EJECUCION, HECHO=excluded.HECHO, SEC_HECHO=excluded.SEC_HECHO, "_s
      u"QUITADO=TOTAL"_s,
      p.grupo, p.addr, p.conjunto, ejecucion, sec, cuando, sec));
  return {};
}

Resultado<> olvidarParte(Database& db, Parte p, const QString& menos) {
  for (const ClaseTotal& c : todasLasClases()) {
    if (conjuntoDe(c.numero) != p.conjunto) continue;
    TARVO_INTENTAR(apartarBase(db, p.grupo, c.numero));
    TARVO_INTENTAR(db.ejecutar(
        u"DELETE FROM BaseFilas WHERE GRUPO=? AND CLASE=? AND ADDR=? AND CLASE NOT IN (%1)"_s.arg(
            menos),
        p.grupo, c.numero, p.addr));
    TARVO_INTENTAR(db.ejecutar(
        u"UPDATE Lecturas SET LINK=NULL, BASE_DESDE=NULL, BASE_HASTA=NULL, APARTE=0 WHERE GRUPO=? "_s
        u"AND CLASE=? AND CLASE NOT IN (%1) AND NOT EXISTS (SELECT 1 FROM BaseFilas WHERE "_s
        u"BaseFilas.GRUPO=Lecturas.GRUPO AND BaseFilas.CLASE=Lecturas.CLASE)"_s.arg(menos),
        p.grupo, c.numero));
  }
  return {};
}

Resultado<> anotarPartes(Database& db, int grupo, const ClaseTotal& c, const Lectura& lectura) {
  QStringList addrs;
  for (const auto& [addr, filas] : lectura.maquinas) addrs << QString::number(addr);
  if (!addrs.isEmpty())
    TARVO_INTENTAR(db.ejecutar(QString(u"DELETE FROM CerosParte WHERE GRUPO=? AND ADDR NOT IN ("_s +
                                       addrs.join(u',') + u")"_s),
                               grupo));
  TARVO_TOMAR(
      auto rs,
      db.consultar(
          u"SELECT count(*), count(QUITADO), SUM(QUITADO), MAX(HECHO) FROM CerosParte WHERE GRUPO=? AND "_s
          u"CONJUNTO=? AND SEC_HECHO>0"_s,
          grupo, conjuntoDe(c.numero)));
  const bool sabido = rs->entero(0) == rs->entero(1);
  TARVO_INTENTAR(db.ejecutar(u"UPDATE Lecturas SET AJUSTE=? WHERE GRUPO=? AND CLASE=?"_s,
                             sabido ? dao::Valor(rs->entero(2)) : dao::Valor(), grupo, c.numero));
  if (rs->entero(0) == 0) return {};
  const Fecha cuando = rs->fecha(3);
  const QString desde = CampoDesde(c.numero);
  TARVO_INTENTAR(db.ejecutar(
      QString(
          u"UPDATE Sesiones SET "_s + desde + u"=? WHERE CODGPO=? AND ("_s + desde +
          u" IS NULL OR "_s + desde +
          u"<?) AND EXISTS (SELECT 1 FROM Lecturas WHERE GRUPO=CODGPO AND CLASE=? AND LINK IS "_s
          u"NULL)"_s),
      cuando, grupo, cuando, c.numero));
  return {};
}

Resultado<std::set<int>> gruposAMedias(Database& db) {
  TARVO_TOMAR(auto rs, db.consultar(u"SELECT DISTINCT GRUPO FROM CerosParte"_s));
  std::set<int> grupos;
  for (; !rs->Eof();) {
    grupos.insert(static_cast<int>(rs->entero(0)));
    TARVO_INTENTAR(rs->MoveNext());
  }
  return grupos;
}

Resultado<std::optional<Contadores>> granTotalLeido(Database& db, int grupo, int addr) {
  TARVO_TOMAR(
      auto rs,
      db.consultar(
          QString(u"SELECT MAQUINAS FROM Lecturas WHERE GRUPO=? AND CLASE=? AND ESTADO=2 AND "_s +
                  QString::fromUtf16(kTrasElCero)),
          grupo, kGranTotal, addr));
  if (rs->Eof()) return std::nullopt;
  const bool varias = rs->entero(0) > 1;
  TARVO_TOMAR(
      auto base,
      varias
          ? db.consultar(
                u"SELECT SUM(CON), SUM(IMP), SUM(PES) FROM LectFilas WHERE GRUPO=? AND CLASE=? AND "_s
                u"ADDR=?"_s,
                grupo, kGranTotal, addr)
          : db.consultar(
                u"SELECT SUM(CON), SUM(IMP), SUM(PES) FROM TOTGRT WHERE LINK=0 AND GRUPO=?"_s,
                grupo));
  return Contadores{.CON = base->entero(0), .PES = base->entero(2), .IMP = base->entero(1)};
}

}  // namespace tarvo::totals
