#include "articles/Tanda.h"

#include <functional>

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using dao::conMarcas;
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
      sql += conMarcas(u" WHEN {precio}<>0 THEN {que}",
                       {{u"precio", columnaPrecio(nivel, tarifa)}, {u"que", que(nivel, tarifa)}});
  return sql + u" ELSE 0 END"_s;
}

QString llegadaSql() {
  return conMarcas(
      u"INSERT INTO HistoriaPrecios (SECCION, CODPLU, NIVEL, TARIFA, ANTES, AHORA, CUANDO, QUIEN, "
      u"VENTANA) SELECT SECCION, CODPLU, {nivel}, {tarifa}, 0, {precio}, ?, ?, ? FROM "
      u"TandaArticulos WHERE HABIA=0 AND {precio}<>0",
      {{u"nivel", primerPrecio([](int n, int) { return QString::number(n); })},
       {u"tarifa", primerPrecio([](int, int t) { return QString::number(t); })},
       {u"precio", primerPrecio([](int n, int t) { return columnaPrecio(n, t); })}});
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
    const QString lista = columnas.join(u", ");
    TARVO_INTENTAR(db_.ejecutar(
        conMarcas(u"CREATE TEMP TABLE IF NOT EXISTS TandaArticulos ({columnas}, HABIA, "
                  u"PRIMARY KEY (SECCION, CODPLU))",
                  {{u"columnas", lista}})));
    TARVO_TOMAR(auto poner,
                db_.preparar(conMarcas(
                    u"INSERT INTO TandaArticulos ({columnas}, HABIA) VALUES ({valores} 0)",
                    {{u"columnas", lista}, {u"valores", u"?, "_s.repeated(columnas.size())}})));
    poner_ = std::move(poner);
  }
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM TandaArticulos"));
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
    for (const QString& c : columnas)
      distintas << conMarcas(u"max(P.{c} IS DISTINCT FROM T.{c})", {{u"c", c}});
    return conMarcas(u"SELECT {distintas} FROM {deSuClave}",
                     {{u"distintas", distintas.join(u", ")}, {u"deSuClave", kDeSuClave}});
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
        conMarcas(u"UPDATE PLUSES SET {valores} FROM TandaArticulos T WHERE T.HABIA=1 AND "
                  u"PLUSES.SECCION=T.SECCION AND PLUSES.CODPLU=T.CODPLU",
                  {{u"valores", valores.join(u", ")}})));
  if (oyen_ == Oyen::Todos)
    TARVO_INTENTAR(db_.ejecutar(
        u"DELETE FROM [Cross] WHERE (Secc, plu) IN (SELECT SECCION, CODPLU FROM TandaArticulos)"));
  return {};
}

Resultado<> Tanda::historia(const QString& columna, int nivel, int tarifa) {
  TARVO_INTENTAR(db_.ejecutar(
      conMarcas(
          u"INSERT INTO HistoriaPrecios (SECCION, CODPLU, NIVEL, TARIFA, ANTES, AHORA, CUANDO, "
          u"QUIEN, VENTANA) SELECT T.SECCION, T.CODPLU, ?, ?, ifnull(P.{precio}, 0), T.{precio}, "
          u"?, ?, ? FROM {deSuClave} WHERE ifnull(P.{precio}, 0)<>T.{precio}",
          {{u"precio", columna}, {u"deSuClave", kDeSuClave}}),
      nivel, tarifa, catalogo_.reloj().ahora(), catalogo_.quien(), ventana_));
  return {};
}

Resultado<> Tanda::hacerLosNuevos() {
  TARVO_INTENTAR(catalogo_.cambios().ArticulosLlegan(kNuevas));
  static const QString insertar = conMarcas(
      u"INSERT INTO PLUSES ({columnas}) SELECT {columnas} FROM TandaArticulos WHERE HABIA=0",
      {{u"columnas", columnasArticulo().join(u", ")}});
  TARVO_TOMAR(const auto hechos, db_.ejecutar(insertar));
  if (hechos == 0) return {};
  static const QString llegada = llegadaSql();
  TARVO_INTENTAR(db_.ejecutar(llegada, catalogo_.reloj().ahora(), catalogo_.quien(), ventana_));
  return {};
}

}  // namespace tarvo::articles
