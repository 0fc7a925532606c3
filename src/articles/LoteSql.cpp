#include "articles/LoteSql.h"

namespace tarvo::articles::lotesql {

using namespace Qt::StringLiterals;
using dao::conMarcas;

namespace {

// Condition: two rows have the same in all these columns.
QString iguales(const QStringList& columnas, const QString& una, const QString& otra) {
  QStringList cada;
  for (const QString& c : columnas)
    cada << conMarcas(u"{una}.{columna} IS NOT DISTINCT FROM {otra}.{columna}",
                      {{u"una", una}, {u"columna", c}, {u"otra", otra}});
  return cada.join(u" AND ");
}

// Condition: the article of a row of LoteAntes is now as in `otra`, another row of its key.
QString estaComo(const QString& otra) {
  return conMarcas(
      u"(({otra}.HABIA=1 AND EXISTS (SELECT 1 FROM PLUSES P WHERE P.SECCION={otra}.SECCION AND "
      u"P.CODPLU={otra}.CODPLU AND {iguales})) OR ({otra}.HABIA=0 AND NOT EXISTS (SELECT 1 FROM "
      u"PLUSES P WHERE P.SECCION={otra}.SECCION AND P.CODPLU={otra}.CODPLU)))",
      {{u"otra", otra}, {u"iguales", iguales(columnasArticulo(), u"P"_s, otra)}});
}

Resultado<> marcar(dao::Database& db, qint64 lote, Que que, const QString& condicion) {
  TARVO_INTENTAR(db.ejecutar(conMarcas(u"UPDATE LoteAntes SET QUE=? WHERE LOTE=? AND ({condicion})",
                                       {{u"condicion", condicion}}),
                             static_cast<int>(que), lote));
  return {};
}

// Changes by others since the batch noted an article's state: it differs, or a new one has moved
// stock.
Resultado<> apartarAjenos(dao::Database& db, qint64 lote) {
  const QString anotado =
      u"SELECT 1 FROM LoteDespues D WHERE D.LOTE=LoteAntes.LOTE AND D.SECCION=LoteAntes.SECCION "
      u"AND D.CODPLU=LoteAntes.CODPLU"_s;
  TARVO_INTENTAR(
      marcar(db, lote, Que::Dejar,
             conMarcas(u"QUE>0 AND EXISTS ({anotado}) AND NOT EXISTS ({anotado} AND {igual})",
                       {{u"anotado", anotado}, {u"igual", estaComo(u"D"_s)}})));
  return marcar(
      db, lote, Que::Dejar,
      conMarcas(u"QUE=2 AND EXISTS ({anotado}) AND EXISTS (SELECT 1 FROM MovsAlm M WHERE "
                u"M.SECCION=LoteAntes.SECCION AND M.CODIGO=LoteAntes.CODPLU AND NOT EXISTS (SELECT "
                u"1 FROM LoteMovs X WHERE X.LOTE=LoteAntes.LOTE AND X.ANTES=0 AND {iguales}))",
                {{u"anotado", anotado}, {u"iguales", iguales(contadores(), u"X"_s, u"M"_s)}}));
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

QStringList tablasDeFilas() {
  return {u"LoteAntes"_s, u"LoteDespues"_s, u"LoteMovs"_s, u"LotePorHacer"_s, u"LoteOrden"_s};
}

QStringList tablas() {
  return tablasDeFilas() << u"LoteArticulos"_s;
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
  // Where an article moved from or to, which has its history.
  van = db.ejecutar(
      u"UPDATE LoteAntes SET LOTE=? WHERE LOTE=? AND (SECCION, CODPLU) IN (SELECT N.SECCION, "
      u"N.CODPLU FROM LoteAntes Z CROSS JOIN SECCS S INNER JOIN LoteAntes N ON N.LOTE=? AND "
      u"N.SECCION=S.NMSECC AND N.CODPLU=Z.CODPLU AND N.HABIA<>Z.HABIA WHERE Z.LOTE=?)",
      aqui, lote, lote, aqui);
  if (!van) return van;
  total += *van;
  for (const QString& sql :
       {u"UPDATE LoteDespues SET LOTE=? WHERE LOTE=? AND (SECCION, CODPLU) IN (SELECT SECCION, "
        u"CODPLU FROM LoteAntes WHERE LOTE=?)"_s,
        u"UPDATE LoteMovs SET LOTE=? WHERE LOTE=? AND ANTES IN (0, 1) AND (SECCION, CODIGO) IN "
        u"(SELECT SECCION, CODPLU FROM LoteAntes WHERE LOTE=?)"_s})
    TARVO_INTENTAR(db.ejecutar(sql, aqui, lote, aqui));
  return total;
}

Resultado<> clasificar(dao::Database& db, qint64 lote) {
  const auto conEsta = [](QStringView condicion) {
    return conMarcas(condicion, {{u"esta",
                                  u"EXISTS (SELECT 1 FROM PLUSES P WHERE "
                                  u"P.SECCION=LoteAntes.SECCION AND "
                                  u"P.CODPLU=LoteAntes.CODPLU)"_s}});
  };
  TARVO_INTENTAR(marcar(db, lote, Que::Nada, u"1=1"_s));
  TARVO_INTENTAR(marcar(db, lote, Que::Quitar, conEsta(u"HABIA=0 AND {esta}")));
  TARVO_INTENTAR(
      marcar(db, lote, Que::Reponer,
             conMarcas(u"HABIA=1 AND NOT {igual}", {{u"igual", estaComo(u"LoteAntes"_s)}})));
  TARVO_INTENTAR(marcar(db, lote, Que::Reinsertar, conEsta(u"QUE=1 AND NOT {esta}")));
  TARVO_INTENTAR(apartarAjenos(db, lote));
  TARVO_INTENTAR(
      marcar(db, lote, Que::Dejar,
             u"QUE=4 AND NOT EXISTS (SELECT 1 FROM SECCS WHERE NMSECC=LoteAntes.SECCION)"_s));
  return apartarCodigosAjenos(db, lote);
}

Resultado<std::vector<ClaveArticulo>> claves(dao::Database& db, qint64 lote, Que que) {
  return dao::reunir(
      db.consultar(
          u"SELECT SECCION, CODPLU FROM LoteAntes WHERE LOTE=? AND QUE=? ORDER BY SECCION, CODPLU",
          lote, static_cast<int>(que)),
      [](const dao::Recordset& fila) {
        return ClaveArticulo{static_cast<int>(fila.entero(0)), fila.entero(1)};
      });
}

Resultado<> anotarPrecios(dao::Database& db, qint64 lote, const Firma& firma) {
  for (int nivel = 0; nivel < kNiveles; ++nivel)
    for (int tarifa = 0; tarifa < kTarifas; ++tarifa)
      TARVO_INTENTAR(db.ejecutar(
          conMarcas(
              u"INSERT INTO HistoriaPrecios (SECCION, CODPLU, NIVEL, TARIFA, ANTES, AHORA, CUANDO, "
              u"QUIEN, VENTANA) SELECT L.SECCION, L.CODPLU, ?, ?, ifnull(P.{precio}, 0), "
              u"L.{precio}, ?, ?, ? FROM LoteAntes L INNER JOIN PLUSES P ON P.SECCION=L.SECCION "
              u"AND P.CODPLU=L.CODPLU WHERE L.LOTE=? AND L.QUE=1 AND ifnull(P.{precio}, "
              u"0)<>L.{precio}",
              {{u"precio", columnaPrecio(nivel, tarifa)}}),
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
      db.ejecutar(conMarcas(u"UPDATE PLUSES SET {valores} FROM LoteAntes L WHERE L.LOTE=? AND "
                            u"L.QUE=1 AND PLUSES.SECCION=L.SECCION AND PLUSES.CODPLU=L.CODPLU",
                            {{u"valores", valores.join(u", ")}}),
                  lote));
  TARVO_INTENTAR(
      db.ejecutar(conMarcas(u"INSERT INTO PLUSES ({columnas}) SELECT {columnas} FROM LoteAntes "
                            u"WHERE LOTE=? AND QUE=4",
                            {{u"columnas", columnasArticulo().join(u", ")}}),
                  lote));
  TARVO_INTENTAR(db.ejecutar(
      conMarcas(
          u"INSERT INTO MovsAlm ({contadores}) SELECT M.{guardados} FROM LoteMovs M INNER "
          u"JOIN LoteAntes L ON L.LOTE=M.LOTE AND L.SECCION=M.SECCION AND "
          u"L.CODPLU=M.CODIGO WHERE M.LOTE=? AND M.ANTES=1 AND L.QUE=4 AND EXISTS (SELECT 1 "
          u"FROM ALMACEN A WHERE A.CODALM=M.CODALM)",
          {{u"contadores", contadores().join(u", ")}, {u"guardados", contadores().join(u", M.")}}),
      lote));
  return {};
}

}  // namespace tarvo::articles::lotesql
