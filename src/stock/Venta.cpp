// Taking the sales of a period off the stock.
#include "stock/Almacenes.h"
#include "stock/Movimientos.h"
#include "stock/TextosStock.h"

namespace tarvo::stock {

namespace {

// Grams of articles sold by weight, units of the rest, summed by warehouse and article.
const QString kVentas = QStringLiteral(
    "INSERT INTO MovsAlm (CODALM, SECCION, CODIGO, Inicial, Entrada, Compra, Salida, Venta, Merma) "
    "SELECT A, S, C, 0, 0, 0, 0, ?*sum(Q), 0 FROM "
    "(SELECT GRUPOS.Almacen AS A, GRUPOS.SECCION AS S, t.CODI AS C, "
    "iif(PLUSES.CADA IN (0, 1), coalesce(t.PES, 0), coalesce(t.CON, 0)) AS Q FROM ({filas}) t "
    "INNER JOIN GRUPOS ON GRUPOS.CODGPO=t.GRUPO "
    "INNER JOIN PLUSES ON PLUSES.SECCION=GRUPOS.SECCION AND PLUSES.CODPLU=t.CODI "
    "WHERE GRUPOS.Almacen>0) v WHERE Q<>0 GROUP BY A, S, C "
    "ON CONFLICT (CODALM, SECCION, CODIGO) DO UPDATE SET "
    "Venta=coalesce(MovsAlm.Venta, 0)+excluded.Venta");

// The rows of a period, less those added to it from others.
constexpr QStringView kPropias =
    u"SELECT GRUPO, CODI, CON, PES FROM TOTPLU WHERE LINK={link} "
    u"UNION ALL SELECT t.GRUPO, t.CODI, -coalesce(t.CON, 0), -coalesce(t.PES, 0) FROM COLUMNA d "
    u"INNER JOIN COLUMNA s ON s.FECHA1>=d.FECHA1 AND s.FECHAF<=d.FECHAF "
    u"INNER JOIN TOTPLU t ON t.LINK=s.LINK AND s.LINK<>d.LINK WHERE d.LINK={link} AND "
    u"((d.TIPO=2 AND s.ACUM2<>0) OR (d.TIPO=3 AND s.ACUM3<>0) OR (d.TIPO=4 AND s.ACUM4<>0))";

// Less, too, replaced versions of those others that are still in the period.
constexpr QStringView kPropiasSinSustituidos =
    u"{propias} "
    u"UNION ALL SELECT t.GRUPO, t.CODI, -coalesce(t.CON, 0), -coalesce(t.PES, 0) FROM COLUMNA d "
    u"INNER JOIN Sustituidos s ON s.FECHA1>=d.FECHA1 AND s.FECHAF<=d.FECHAF "
    u"INNER JOIN TotSusti t ON t.ID=s.ID AND t.CLASE=16 WHERE d.LINK={link} AND "
    u"((d.TIPO=2 AND s.ACUM2<>0) OR (d.TIPO=3 AND s.ACUM3<>0) OR (d.TIPO=4 AND s.ACUM4<>0))";

// The rows a period has from others leave the stock with those others, whenever they were added.
QString filasPropias(dao::Database& db, qint64 link) {
  const QString cual = QString::number(link);
  const QString propias = dao::conMarcas(kPropias, {{u"link", cual}});
  if (!db.existeTabla(u"TotSusti")) return propias;
  return dao::conMarcas(kPropiasSinSustituidos, {{u"propias", propias}, {u"link", cual}});
}

}  // namespace

Resultado<> Almacenes::descontarFilas(const QString& consulta, int veces) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_INTENTAR(db_.ejecutar(dao::conMarcas(kVentas, {{u"filas", consulta}}), veces));
  TARVO_INTENTAR(borrarCeros(db_));
  return t.confirmar();
}

Resultado<> Almacenes::puedeDescontar(qint64 link) {
  QStringList grupos;
  TARVO_INTENTAR(dao::recorrer(
      db_.consultar(
          u"SELECT DISTINCT g.CODGPO FROM TOTPLU t INNER JOIN GRUPOS g ON g.CODGPO=t.GRUPO WHERE "
          u"t.LINK=? AND g.Almacen>0 AND (g.SECCION IS NULL OR NOT EXISTS (SELECT 1 FROM ALMACEN a "
          u"WHERE a.CODALM=g.Almacen)) ORDER BY g.CODGPO",
          link),
      [&grupos](const dao::Recordset& fila) { grupos += QString::number(fila.entero(0)); }));
  if (grupos.isEmpty()) return {};
  return fallo(Fallo::Restriccion, textos_(kTxGruposSinStock, {grupos.join(u", ")}));
}

Resultado<bool> Almacenes::DescontarVenta(qint64 link, int veces) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(const auto puede, db_.uno(u"select stkABLE from COLUMNA where LINK=?", link));
  if (!puede.logico()) return false;
  TARVO_INTENTAR(descontarFilas(filasPropias(db_, link), veces));
  TARVO_INTENTAR(
      db_.ejecutar(u"update COLUMNA set stkADO=coalesce(stkADO, 0)+? where LINK=?", veces, link));
  TARVO_INTENTAR(t.confirmar());
  return true;
}

}  // namespace tarvo::stock
