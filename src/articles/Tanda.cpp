#include "articles/Tanda.h"

#include <functional>

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using dao::Transaccion;

namespace {

// The articles to be written, for the duration of one escribir(). HABIA 1: one with that key
// exists.
const QString kTabla = u"TandaArticulos"_s;
// CROSS: the few are looked up in the many, never vice versa.
const QString kDeSuClave =
    u"TandaArticulos T CROSS JOIN PLUSES P ON P.SECCION=T.SECCION AND P.CODPLU=T.CODPLU"_s;
const QString kNuevas = u"SELECT SECCION, CODPLU FROM TandaArticulos WHERE HABIA=0"_s;

// The first non-zero price of a row of kTabla, and its level and tarifa.
QString primerPrecio(const std::function<QString(int nivel, int tarifa)>& que) {
  QString sql = u"CASE"_s;
  for (int nivel = 0; nivel < kNiveles; ++nivel)
    for (int tarifa = 0; tarifa < kTarifas; ++tarifa)
      sql += u" WHEN %1<>0 THEN %2"_s.arg(columnaPrecio(nivel, tarifa), que(nivel, tarifa));
  return sql + u" ELSE 0 END"_s;
}

QString llegadaSql() {
  const QString precio = primerPrecio([](int n, int t) { return columnaPrecio(n, t); });
  return u"INSERT INTO HistoriaPrecios (SECCION, CODPLU, NIVEL, TARIFA, ANTES, AHORA, CUANDO, "
         u"QUIEN, VENTANA) SELECT SECCION, CODPLU, %1, %2, 0, %3, ?, ?, ? FROM TandaArticulos "
         u"WHERE HABIA=0 AND %3<>0"_s.arg(
             primerPrecio([](int n, int) { return QString::number(n); }),
             primerPrecio([](int, int t) { return QString::number(t); }), precio);
}

}  // namespace

Resultado<> Tanda::escribir(qint64 lote, std::span<const Articulo> articulos) {
  if (articulos.empty()) return {};
  auto hecho = [&]() -> Resultado<> {
    TARVO_TOMAR(auto t, Transaccion::empezar(db_));
    TARVO_INTENTAR(tender(articulos));
    TARVO_INTENTAR(lotes_.guardarTodos(lote, kTabla));
    TARVO_INTENTAR(cambiarLosQueHay());
    TARVO_INTENTAR(hacerLosNuevos());
    TARVO_INTENTAR(lotes_.anotarTodos(lote, kTabla));
    TARVO_INTENTAR(lotes_.barrer());
    return t.confirmar();
  }();
  if (!hecho) poner_.reset();  // its table may have gone with the transaction
  if (!hecho || oyen_ == Oyen::Nadie) return hecho;
  for (const Articulo& a : articulos) catalogo_.cambios().MarcarSeccion(a.clave.seccion, lote);
  return {};
}

Resultado<> Tanda::tender(std::span<const Articulo> articulos) {
  const QStringList& columnas = columnasArticulo();
  if (!poner_) {
    TARVO_INTENTAR(db_.ejecutar(
        u"CREATE TEMP TABLE IF NOT EXISTS %1 (%2, HABIA, PRIMARY KEY (SECCION, CODPLU))"_s.arg(
            kTabla, columnas.join(u", "))));
    TARVO_TOMAR(auto poner, db_.preparar(u"INSERT INTO %1 (%2, HABIA) VALUES (%3 0)"_s.arg(
                                kTabla, columnas.join(u", "), u"?, "_s.repeated(columnas.size()))));
    poner_ = std::move(poner);
  }
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM "_s + kTabla));
  for (const Articulo& a : articulos) {
    ligarArticulo(*poner_, a);
    TARVO_INTENTAR(poner_->ejecutar());
  }
  TARVO_INTENTAR(
      db_.ejecutar(u"UPDATE TandaArticulos SET HABIA=1 WHERE EXISTS (SELECT 1 FROM PLUSES P WHERE "
                   u"P.SECCION=TandaArticulos.SECCION AND P.CODPLU=TandaArticulos.CODPLU)"));
  return {};
}

// Those that differ in at least one article: unwritten columns need no index updates.
Resultado<QStringList> Tanda::columnasQueCambian() {
  const QStringList columnas = columnasArticulo().mid(2);
  static const QString sql = [&] {
    QStringList distintas;
    for (const QString& c : columnas) distintas << u"max(P.%1 IS DISTINCT FROM T.%1)"_s.arg(c);
    return u"SELECT %1 FROM %2"_s.arg(distintas.join(u", "), kDeSuClave);
  }();
  TARVO_TOMAR(const auto rs, db_.consultar(sql));
  QStringList salida;
  for (int i = 0; !rs->Eof() && i < columnas.size(); ++i)
    if (!rs->nulo(i) && rs->logico(i)) salida << columnas[i];
  return salida;
}

Resultado<> Tanda::cambiarLosQueHay() {
  TARVO_TOMAR(const auto columnas, columnasQueCambian());
  QStringList valores;
  for (const QString& c : columnas) valores << u"%1=T.%1"_s.arg(c);
  for (int nivel = 0; nivel < kNiveles; ++nivel)
    for (int tarifa = 0; tarifa < kTarifas; ++tarifa)
      if (const QString c = columnaPrecio(nivel, tarifa); columnas.contains(c))
        TARVO_INTENTAR(historia(c, nivel, tarifa));
  if (!valores.isEmpty())
    TARVO_INTENTAR(db_.ejecutar(
        u"UPDATE PLUSES SET %1 FROM TandaArticulos T WHERE T.HABIA=1 AND PLUSES.SECCION=T.SECCION "
        u"AND PLUSES.CODPLU=T.CODPLU"_s.arg(valores.join(u", "))));
  if (oyen_ == Oyen::Todos)
    TARVO_INTENTAR(db_.ejecutar(
        u"DELETE FROM [Cross] WHERE (Secc, plu) IN (SELECT SECCION, CODPLU FROM TandaArticulos)"));
  return {};
}

Resultado<> Tanda::historia(const QString& columna, int nivel, int tarifa) {
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO HistoriaPrecios (SECCION, CODPLU, NIVEL, TARIFA, ANTES, AHORA, CUANDO, QUIEN, "
      u"VENTANA) SELECT T.SECCION, T.CODPLU, ?, ?, ifnull(P.%1, 0), T.%1, ?, ?, ? FROM %2 WHERE "
      u"ifnull(P.%1, 0)<>T.%1"_s.arg(columna, kDeSuClave),
      nivel, tarifa, catalogo_.reloj().ahora(), catalogo_.quien(), ventana_));
  return {};
}

Resultado<> Tanda::hacerLosNuevos() {
  TARVO_INTENTAR(catalogo_.cambios().ArticulosLlegan(kNuevas));
  static const QString insertar =
      u"INSERT INTO PLUSES (%1) SELECT %1 FROM TandaArticulos WHERE HABIA=0"_s.arg(
          columnasArticulo().join(u", "));
  TARVO_TOMAR(const auto hechos, db_.ejecutar(insertar));
  if (hechos == 0) return {};
  static const QString llegada = llegadaSql();
  TARVO_INTENTAR(db_.ejecutar(llegada, catalogo_.reloj().ahora(), catalogo_.quien(), ventana_));
  return {};
}

}  // namespace tarvo::articles
