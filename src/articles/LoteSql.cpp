#include "articles/LoteSql.h"

namespace tarvo::articles::lotesql {

using namespace Qt::StringLiterals;

namespace {

// Condition: the article of a row of LoteAntes is now as in `otra`, another row of its key.
QString estaComo(const QString& otra) {
  QStringList iguales;
  for (const QString& c : columnasArticulo())
    iguales << u"P.%1 IS NOT DISTINCT FROM %2.%1"_s.arg(c, otra);
  return u"((%1.HABIA=1 AND EXISTS (SELECT 1 FROM PLUSES P WHERE P.SECCION=%1.SECCION AND "
         u"P.CODPLU=%1.CODPLU AND %2)) OR (%1.HABIA=0 AND NOT EXISTS (SELECT 1 FROM PLUSES P WHERE "
         u"P.SECCION=%1.SECCION AND P.CODPLU=%1.CODPLU)))"_s.arg(otra, iguales.join(u" AND "));
}

Resultado<> marcar(dao::Database& db, qint64 lote, Que que, const QString& condicion) {
  TARVO_INTENTAR(db.ejecutar(u"UPDATE LoteAntes SET QUE=? WHERE LOTE=? AND (%1)"_s.arg(condicion),
                             static_cast<int>(que), lote));
  return {};
}

// Changes by others since the batch noted an article's state: it differs, or a new one has moved
// stock.
Resultado<> apartarAjenos(dao::Database& db, qint64 lote) {
  const QString anotado =
      u"EXISTS (SELECT 1 FROM LoteDespues D WHERE D.LOTE=LoteAntes.LOTE AND "
      u"D.SECCION=LoteAntes.SECCION AND D.CODPLU=LoteAntes.CODPLU"_s;
  TARVO_INTENTAR(marcar(db, lote, Que::Dejar,
                        u"QUE>0 AND %1) AND NOT %1 AND %2)"_s.arg(anotado, estaComo(u"D"_s))));
  QStringList iguales;
  for (const QString& c : contadores()) iguales << u"X.%1 IS NOT DISTINCT FROM M.%1"_s.arg(c);
  return marcar(db, lote, Que::Dejar,
                u"QUE=2 AND %1) AND EXISTS (SELECT 1 FROM MovsAlm M WHERE "
                u"M.SECCION=LoteAntes.SECCION AND M.CODIGO=LoteAntes.CODPLU AND NOT EXISTS (SELECT "
                u"1 FROM LoteMovs X WHERE X.LOTE=LoteAntes.LOTE AND X.ANTES=0 AND %2))"_s.arg(
                    anotado, iguales.join(u" AND ")));
}

// Bar codes now held by articles outside the undoing. Leaving one article alone may keep the bar
// code of the next, so this repeats until none is found.
Resultado<> apartarCodigosAjenos(dao::Database& db, qint64 lote) {
  for (;;) {
    TARVO_TOMAR(
        const auto n,
        db.ejecutar(
            u"UPDATE LoteAntes SET QUE=3 WHERE LOTE=? AND QUE IN (1, 4) AND CodBarExt IS NOT NULL "
            u"AND "
            u"EXISTS (SELECT 1 FROM PLUSES P WHERE P.SECCION=LoteAntes.SECCION AND "
            u"P.CodBarExt=LoteAntes.CodBarExt AND NOT EXISTS (SELECT 1 FROM LoteAntes O WHERE "
            u"O.LOTE=LoteAntes.LOTE AND O.SECCION=P.SECCION AND O.CODPLU=P.CODPLU AND O.QUE IN (1, "
            u"2)))",
            lote));
    if (n == 0) return {};
  }
}

}  // namespace

QStringList tablas() {
  return {u"LoteArticulos"_s, u"LoteAntes"_s,    u"LoteDespues"_s,
          u"LoteMovs"_s,      u"LotePorHacer"_s, u"LoteOrden"_s};
}

QStringList contadores() {
  return {u"SECCION"_s, u"CODIGO"_s, u"CODALM"_s, u"Inicial"_s, u"Entrada"_s,
          u"Compra"_s,  u"Salida"_s, u"Venta"_s,  u"Merma"_s};
}

Resultado<qint64> apartarTramo(dao::Database& db, qint64 lote, qint64 aqui, int cuantos) {
  TARVO_TOMAR(auto ultima,
              db.consultar(u"SELECT SECCION, CODPLU FROM (SELECT SECCION, CODPLU FROM LoteAntes "
                           u"WHERE LOTE=? ORDER BY "
                           u"SECCION, CODPLU LIMIT ?) ORDER BY SECCION DESC, CODPLU DESC LIMIT 1",
                           lote, cuantos));
  if (ultima->Eof()) return 0;
  auto van = db.ejecutar(u"UPDATE LoteAntes SET LOTE=? WHERE LOTE=? AND (SECCION, CODPLU)<=(?, ?)",
                         aqui, lote, ultima->entero(0), ultima->entero(1));
  qint64 total = 0;
  while (van && *van > 0) {
    total += *van;
    van = db.ejecutar(
        u"UPDATE LoteAntes SET LOTE=? WHERE LOTE=? AND (SECCION, CODPLU) IN (SELECT P.SECCION, "
        u"P.CODPLU FROM LoteAntes Z INNER JOIN PLUSES P ON P.SECCION=Z.SECCION AND "
        u"P.CodBarExt=Z.CodBarExt WHERE Z.LOTE=? AND Z.CodBarExt IS NOT NULL)",
        aqui, lote, aqui);
  }
  if (!van) return van;
  for (const QString& sql :
       {u"UPDATE LoteDespues SET LOTE=? WHERE LOTE=? AND (SECCION, CODPLU) IN (SELECT SECCION, "
        u"CODPLU FROM LoteAntes WHERE LOTE=?)"_s,
        u"UPDATE LoteMovs SET LOTE=? WHERE LOTE=? AND ANTES IN (0, 1) AND (SECCION, CODIGO) IN "
        u"(SELECT SECCION, CODPLU FROM LoteAntes WHERE LOTE=?)"_s})
    TARVO_INTENTAR(db.ejecutar(sql, aqui, lote, aqui));
  return total;
}

Resultado<> clasificar(dao::Database& db, qint64 lote) {
  const QString esta =
      u"EXISTS (SELECT 1 FROM PLUSES P WHERE P.SECCION=LoteAntes.SECCION AND P.CODPLU=LoteAntes.CODPLU)"_s;
  TARVO_INTENTAR(marcar(db, lote, Que::Nada, u"1=1"_s));
  TARVO_INTENTAR(marcar(db, lote, Que::Quitar, u"HABIA=0 AND "_s + esta));
  TARVO_INTENTAR(marcar(db, lote, Que::Reponer, u"HABIA=1 AND NOT "_s + estaComo(u"LoteAntes"_s)));
  TARVO_INTENTAR(marcar(db, lote, Que::Reinsertar, u"QUE=1 AND NOT "_s + esta));
  TARVO_INTENTAR(apartarAjenos(db, lote));
  TARVO_INTENTAR(
      marcar(db, lote, Que::Dejar,
             u"QUE=4 AND NOT EXISTS (SELECT 1 FROM SECCS WHERE NMSECC=LoteAntes.SECCION)"_s));
  return apartarCodigosAjenos(db, lote);
}

Resultado<std::vector<ClaveArticulo>> claves(dao::Database& db, qint64 lote, Que que) {
  TARVO_TOMAR(
      auto rs,
      db.consultar(
          u"SELECT SECCION, CODPLU FROM LoteAntes WHERE LOTE=? AND QUE=? ORDER BY SECCION, CODPLU",
          lote, static_cast<int>(que)));
  std::vector<ClaveArticulo> salida;
  for (auto& r = *rs; !r.Eof();) {
    salida.push_back({static_cast<int>(r.entero(0)), r.entero(1)});
    TARVO_INTENTAR(r.MoveNext());
  }
  return salida;
}

Resultado<> anotarPrecios(dao::Database& db, qint64 lote, const Firma& firma) {
  for (int nivel = 0; nivel < kNiveles; ++nivel)
    for (int tarifa = 0; tarifa < kTarifas; ++tarifa)
      TARVO_INTENTAR(db.ejecutar(
          u"INSERT INTO HistoriaPrecios (SECCION, CODPLU, NIVEL, TARIFA, ANTES, AHORA, CUANDO, "
          u"QUIEN, VENTANA) SELECT L.SECCION, L.CODPLU, ?, ?, ifnull(P.%1, 0), L.%1, ?, ?, ? FROM "
          u"LoteAntes L INNER JOIN PLUSES P ON P.SECCION=L.SECCION AND P.CODPLU=L.CODPLU WHERE "
          u"L.LOTE=? AND L.QUE=1 AND ifnull(P.%1, 0)<>L.%1"_s.arg(columnaPrecio(nivel, tarifa)),
          nivel, tarifa, firma.cuando, firma.quien, firma.ventana, lote));
  return {};
}

Resultado<> devolverHistoria(dao::Database& db, qint64 lote) {
  TARVO_INTENTAR(db.ejecutar(
      u"UPDATE HistoriaPrecios SET SECCION=V.SECCION FROM LoteAntes V INNER JOIN LoteAntes N ON "
      u"N.LOTE=V.LOTE AND N.CODPLU=V.CODPLU AND N.SECCION<>V.SECCION WHERE V.LOTE=? AND V.QUE=4 "
      u"AND N.QUE=2 AND HistoriaPrecios.SECCION=N.SECCION AND HistoriaPrecios.CODPLU=N.CODPLU",
      lote));
  return {};
}

Resultado<> soltarCodigos(dao::Database& db, qint64 lote) {
  TARVO_INTENTAR(db.ejecutar(
      u"UPDATE PLUSES SET CodBarExt=NULL FROM LoteAntes L WHERE L.LOTE=? AND L.QUE=1 AND "
      u"PLUSES.SECCION=L.SECCION AND PLUSES.CODPLU=L.CODPLU AND PLUSES.CodBarExt IS NOT NULL",
      lote));
  return {};
}

Resultado<> reponer(dao::Database& db, qint64 lote) {
  QStringList valores;
  for (const QString& c : columnasArticulo().mid(2)) valores << u"%1=L.%1"_s.arg(c);
  TARVO_INTENTAR(
      db.ejecutar(u"UPDATE PLUSES SET %1 FROM LoteAntes L WHERE L.LOTE=? AND L.QUE=1 AND "
                  u"PLUSES.SECCION=L.SECCION AND PLUSES.CODPLU=L.CODPLU"_s.arg(valores.join(u", ")),
                  lote));
  TARVO_INTENTAR(
      db.ejecutar(u"INSERT INTO PLUSES (%1) SELECT %1 FROM LoteAntes WHERE LOTE=? AND QUE=4"_s.arg(
                      columnasArticulo().join(u", ")),
                  lote));
  TARVO_INTENTAR(db.ejecutar(
      u"INSERT INTO MovsAlm (%1) SELECT M.%2 FROM LoteMovs M INNER JOIN LoteAntes L ON "
      u"L.LOTE=M.LOTE AND L.SECCION=M.SECCION AND L.CODPLU=M.CODIGO WHERE M.LOTE=? AND M.ANTES=1 "
      u"AND L.QUE=4 AND EXISTS (SELECT 1 FROM ALMACEN A WHERE A.CODALM=M.CODALM)"_s.arg(
          contadores().join(u", "), contadores().join(u", M.")),
      lote));
  return {};
}

}  // namespace tarvo::articles::lotesql
