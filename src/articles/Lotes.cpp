#include "articles/Lotes.h"

#include "articles/LoteSql.h"
#include "articles/TextosArticles.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using dao::conMarcas;
using dao::Transaccion;
using dao::Valor;

namespace {

constexpr qint64 kLotesGuardados = 20;
constexpr qint64 kTramo = 0;  // the batch of articles currently being restored; empty otherwise
constexpr size_t kNombrados = 20;  // articles in a sentence
constexpr int kPorTramo = 200, kPorBarrido = 1000;

// The statements for the rows of a batch: of articles, and of their stock.
struct Ordenes {
  QString articulos, movimientos;
};

// The columns of stock rows: as they are, and each of row M.
QString contadores() {
  return lotesql::contadores().join(u", ");
}
QString contadoresDeM() {
  return u"M."_s + lotesql::contadores().join(u", M.");
}

// Stock rows are found by the key of their article: a shop has tens of thousands.
Ordenes guardadoDonde(QStringView condicion) {
  const QString faltan = conMarcas(
      u"FROM PLUSES WHERE CODPLU>={primero} AND ({condicion}) AND NOT EXISTS (SELECT 1 FROM "
      u"LoteAntes L WHERE L.LOTE=? AND L.SECCION=PLUSES.SECCION AND L.CODPLU=PLUSES.CODPLU)",
      {{u"primero", QString::number(kPrimerCodigo)}, {u"condicion", condicion.toString()}});
  return {
      conMarcas(u"INSERT INTO LoteAntes (LOTE, HABIA, {columnas}) SELECT ?, 1, {columnas} {faltan}",
                {{u"columnas", columnasArticulo().join(u", ")}, {u"faltan", faltan}}),
      conMarcas(u"INSERT INTO LoteMovs (LOTE, ANTES, {contadores}) SELECT ?, 1, {deM} FROM "
                u"(SELECT SECCION AS SEC, CODPLU AS COD {faltan}) K CROSS JOIN MovsAlm M ON "
                u"M.SECCION=K.SEC AND M.CODIGO=K.COD",
                {{u"contadores", contadores()}, {u"deM", contadoresDeM()}, {u"faltan", faltan}})};
}

Resultado<> guardarCon(dao::Database& db, const Ordenes& como, qint64 lote,
                       std::span<const Valor> parametros) {
  std::vector<Valor> valores{lote};
  valores.insert(valores.end(), parametros.begin(), parametros.end());
  valores.emplace_back(lote);
  TARVO_INTENTAR(db.Execute(como.movimientos, valores));
  TARVO_INTENTAR(db.Execute(como.articulos, valores));
  return {};
}

}  // namespace

Resultado<qint64> Lotes::empezar(const QString& ventana) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  TARVO_TOMAR(const auto ultimo, db_.uno(u"SELECT max(LOTE) FROM LoteArticulos"));
  const qint64 lote = ultimo.entero() + 1;
  TARVO_INTENTAR(db_.ejecutar(u"INSERT INTO LoteArticulos (LOTE, CUANDO, VENTANA) VALUES (?, ?, ?)",
                              lote, catalogo_.reloj().ahora(), ventana));
  TARVO_INTENTAR(db_.ejecutar(
      u"DELETE FROM LoteArticulos WHERE LOTE<=? AND (ACABADO=1 OR NOT EXISTS (SELECT 1 FROM "
      u"LoteAntes L WHERE L.LOTE=LoteArticulos.LOTE))",
      lote - kLotesGuardados));
  TARVO_INTENTAR(barrer());
  TARVO_INTENTAR(t.confirmar());
  catalogo_.cambios().loteEmpezado(lote);
  return lote;
}

// A batch may hold 100,000 articles: the remains of forgotten ones are deleted bit by bit. Their
// numbers are found by jumps in the index, past the rows of the batches that are kept.
Resultado<> Lotes::barrer() {
  for (const QString& tabla : lotesql::tablasDeFilas())
    TARVO_INTENTAR(db_.ejecutar(
        conMarcas(u"DELETE FROM {tabla} WHERE rowid IN (WITH RECURSIVE Hay(N) AS (SELECT min(LOTE) "
                  u"FROM {tabla} UNION ALL SELECT (SELECT min(LOTE) FROM {tabla} WHERE LOTE>N) "
                  u"FROM Hay WHERE N IS NOT NULL) SELECT T.rowid FROM Hay CROSS JOIN {tabla} T ON "
                  u"T.LOTE=N WHERE N<=(SELECT max(LOTE) FROM LoteArticulos)-? AND N NOT IN (SELECT "
                  u"LOTE FROM LoteArticulos) LIMIT ?)",
                  {{u"tabla", tabla}}),
        kLotesGuardados, kPorBarrido));
  return {};
}

Resultado<> Lotes::guardar(qint64 lote, ClaveArticulo clave) {
  if (clave.deSistema()) return {};
  static const Ordenes kUno = guardadoDonde(u"SECCION=? AND CODPLU=?");
  const std::array<Valor, 2> articulo{clave.seccion, clave.codigo};
  TARVO_INTENTAR(guardarCon(db_, kUno, lote, articulo));
  return guardarNuevo(lote, clave);
}

Resultado<> Lotes::guardarNuevo(qint64 lote, ClaveArticulo clave) {
  TARVO_INTENTAR(
      db_.ejecutar(u"INSERT INTO LoteAntes (LOTE, HABIA, SECCION, CODPLU) VALUES (?, 0, ?, ?) "
                   u"ON CONFLICT (LOTE, SECCION, CODPLU) DO NOTHING",
                   lote, clave.seccion, clave.codigo));
  return {};
}

Resultado<> Lotes::guardarDonde(qint64 lote, QStringView condicion,
                                std::span<const Valor> parametros) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  TARVO_INTENTAR(guardarCon(db_, guardadoDonde(condicion), lote, parametros));
  return t.confirmar();
}

Resultado<> Lotes::guardarTodos(qint64 lote, const QString& tabla) {
  const QString faltan = conMarcas(
      u"FROM {tabla} T CROSS JOIN PLUSES P ON P.SECCION=T.SECCION AND P.CODPLU=T.CODPLU WHERE "
      u"T.HABIA=1 AND NOT EXISTS (SELECT 1 FROM LoteAntes L WHERE L.LOTE=? AND "
      u"L.SECCION=T.SECCION AND L.CODPLU=T.CODPLU)",
      {{u"tabla", tabla}});
  TARVO_INTENTAR(db_.ejecutar(
      conMarcas(u"INSERT INTO LoteMovs (LOTE, ANTES, {contadores}) SELECT ?, 1, {deM} FROM (SELECT "
                u"T.SECCION AS SEC, T.CODPLU AS COD {faltan}) K CROSS JOIN MovsAlm M ON "
                u"M.SECCION=K.SEC AND M.CODIGO=K.COD",
                {{u"contadores", contadores()}, {u"deM", contadoresDeM()}, {u"faltan", faltan}}),
      lote, lote));
  TARVO_INTENTAR(db_.ejecutar(
      conMarcas(u"INSERT INTO LoteAntes (LOTE, HABIA, {columnas}) SELECT ?, 1, P.{deP} {faltan}",
                {{u"columnas", columnasArticulo().join(u", ")},
                 {u"deP", columnasArticulo().join(u", P.")},
                 {u"faltan", faltan}}),
      lote, lote));
  TARVO_INTENTAR(db_.ejecutar(
      conMarcas(u"INSERT INTO LoteAntes (LOTE, HABIA, SECCION, CODPLU) SELECT ?, 0, SECCION, "
                u"CODPLU FROM {tabla} WHERE HABIA=0 ON CONFLICT (LOTE, SECCION, CODPLU) DO NOTHING",
                {{u"tabla", tabla}}),
      lote));
  return {};
}

Resultado<> Lotes::anotarTodos(qint64 lote, const QString& tabla) {
  TARVO_INTENTAR(db_.ejecutar(
      conMarcas(u"INSERT OR REPLACE INTO LoteMovs (LOTE, ANTES, {contadores}) SELECT ?, 0, {deM} "
                u"FROM {tabla} T CROSS JOIN MovsAlm M ON M.SECCION=T.SECCION AND M.CODIGO=T.CODPLU",
                {{u"contadores", contadores()}, {u"deM", contadoresDeM()}, {u"tabla", tabla}}),
      lote));
  TARVO_INTENTAR(db_.ejecutar(
      conMarcas(u"INSERT OR REPLACE INTO LoteDespues (LOTE, HABIA, {columnas}) SELECT ?, 1, "
                u"{columnas} FROM {tabla}",
                {{u"columnas", columnasArticulo().join(u", ")}, {u"tabla", tabla}}),
      lote));
  return {};
}

namespace {

// The state of the articles of a condition on LoteAntes L for which none was noted so far.
Ordenes anotadoDonde(QStringView condicion) {
  const QStringList columnas = columnasArticulo().mid(2);
  const QString donde = condicion.toString();
  return {
      conMarcas(
          u"INSERT INTO LoteDespues (LOTE, HABIA, SECCION, CODPLU, {columnas}) SELECT L.LOTE, "
          u"P.CODPLU IS NOT NULL, L.SECCION, L.CODPLU, P.{deP} FROM LoteAntes L LEFT JOIN "
          u"PLUSES P ON P.SECCION=L.SECCION AND P.CODPLU=L.CODPLU WHERE {donde}",
          {{u"columnas", columnas.join(u", ")},
           {u"deP", columnas.join(u", P.")},
           {u"donde", donde}}),
      conMarcas(u"INSERT INTO LoteMovs (LOTE, ANTES, {contadores}) SELECT L.LOTE, 0, {deM} FROM "
                u"LoteAntes L INNER JOIN MovsAlm M ON M.SECCION=L.SECCION AND M.CODIGO=L.CODPLU "
                u"WHERE {donde}",
                {{u"contadores", contadores()}, {u"deM", contadoresDeM()}, {u"donde", donde}})};
}

Resultado<> anotarCon(dao::Database& db, const Ordenes& como, std::span<const Valor> valores) {
  TARVO_INTENTAR(db.Execute(como.movimientos, valores));
  TARVO_INTENTAR(db.Execute(como.articulos, valores));
  return {};
}

}  // namespace

Resultado<> Lotes::anotar(qint64 lote, ClaveArticulo clave) {
  if (clave.deSistema()) return {};
  const std::array<Valor, 3> valores{lote, clave.seccion, clave.codigo};
  static const Ordenes kUno = anotadoDonde(u"L.LOTE=? AND L.SECCION=? AND L.CODPLU=?");
  return anotarCon(db_, kUno, valores);
}

Resultado<> Lotes::acabar(qint64 lote) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  const std::array<Valor, 1> valores{lote};
  TARVO_TOMAR(const auto faltan,
              db_.uno(u"SELECT (SELECT count(*) FROM LoteAntes WHERE LOTE=?)-(SELECT count(*) FROM "
                      u"LoteDespues WHERE LOTE=?)",
                      lote, lote));
  if (faltan.entero() > 0)
    TARVO_INTENTAR(
        anotarCon(db_,
                  anotadoDonde(u"L.LOTE=? AND NOT EXISTS (SELECT 1 FROM LoteDespues D WHERE "
                               u"D.LOTE=L.LOTE AND D.SECCION=L.SECCION AND D.CODPLU=L.CODPLU)"),
                  valores));
  TARVO_INTENTAR(dejarDeHacer(lote));
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE LoteArticulos SET ACABADO=1 WHERE LOTE=?", lote));
  return t.confirmar();
}

Resultado<> Lotes::olvidar(qint64 lote) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  for (const QString& tabla : lotesql::tablas())
    TARVO_INTENTAR(
        db_.ejecutar(conMarcas(u"DELETE FROM {tabla} WHERE LOTE=?", {{u"tabla", tabla}}), lote));
  return t.confirmar();
}

Resultado<> Lotes::olvidarAcabado(qint64 lote) {
  TARVO_TOMAR(const auto acabado, db_.uno(u"SELECT ACABADO FROM LoteArticulos WHERE LOTE=?", lote));
  return acabado.nulo() || acabado.logico() ? olvidar(lote) : Resultado<>();
}

Resultado<qint64> Lotes::cuantos(qint64 lote) {
  TARVO_TOMAR(const auto n, db_.uno(u"SELECT count(*) FROM LoteAntes WHERE LOTE=?", lote));
  return n.entero();
}

Resultado<std::optional<Lotes::Lote>> Lotes::ultimo(const QString& ventana) {
  TARVO_TOMAR(
      auto rs,
      db_.consultar(
          u"SELECT A.LOTE, A.CUANDO, (SELECT count(*) FROM LoteAntes L WHERE L.LOTE=A.LOTE), "
          u"A.ACABADO FROM LoteArticulos A WHERE A.VENTANA=? AND EXISTS (SELECT 1 FROM LoteAntes E "
          u"WHERE "
          u"E.LOTE=A.LOTE) ORDER BY A.LOTE DESC LIMIT 1",
          ventana));
  if (rs->Eof()) return std::nullopt;
  return Lote{rs->entero(0), rs->fecha(1), rs->entero(2), rs->logico(3)};
}

Resultado<> Lotes::apuntar(qint64 lote, const QString& orden,
                           std::span<const ClaveArticulo> claves) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO LoteOrden (LOTE, ORDEN) VALUES (?, ?) ON CONFLICT (LOTE) DO UPDATE "
      u"SET ORDEN=excluded.ORDEN",
      lote, orden));
  TARVO_TOMAR(auto uno,
              db_.preparar(u"INSERT INTO LotePorHacer (LOTE, SECCION, CODPLU) VALUES (?, ?, ?)"));
  uno->ligar(0, lote);
  for (const ClaveArticulo& c : claves) {
    uno->ligar(1, qint64{c.seccion});
    uno->ligar(2, c.codigo);
    TARVO_INTENTAR(uno->ejecutar());
  }
  return t.confirmar();
}

Resultado<> Lotes::tachar(qint64 lote, ClaveArticulo clave) {
  TARVO_INTENTAR(
      db_.ejecutar(u"DELETE FROM LotePorHacer WHERE LOTE=? AND (SECCION, CODPLU)<=(?, ?)", lote,
                   clave.seccion, clave.codigo));
  return {};
}

Resultado<std::optional<Lotes::PorHacer>> Lotes::porHacer(qint64 lote) {
  TARVO_TOMAR(const auto orden, db_.uno(u"SELECT O.ORDEN FROM LoteOrden O INNER JOIN LoteArticulos "
                                        u"A ON A.LOTE=O.LOTE WHERE O.LOTE=? AND A.ACABADO=0",
                                        lote));
  if (orden.nulo()) return std::nullopt;
  PorHacer salida{orden.texto(), {}};
  TARVO_TOMAR(salida.claves,
              dao::reunir(db_.consultar(u"SELECT SECCION, CODPLU FROM LotePorHacer WHERE LOTE=? "
                                        u"ORDER BY SECCION, CODPLU",
                                        lote),
                          [](const dao::Recordset& fila) {
                            return ClaveArticulo{static_cast<int>(fila.entero(0)), fila.entero(1)};
                          }));
  return salida;
}

Resultado<> Lotes::darPorHecho(qint64 lote) {
  TARVO_INTENTAR(hayLote(lote));
  return acabar(lote);
}

// Drops what was still to be done of a batch.
Resultado<> Lotes::dejarDeHacer(qint64 lote) {
  for (const QString& tabla : {u"LotePorHacer"_s, u"LoteOrden"_s})
    TARVO_INTENTAR(
        db_.ejecutar(conMarcas(u"DELETE FROM {tabla} WHERE LOTE=?", {{u"tabla", tabla}}), lote));
  return {};
}

Resultado<> Lotes::hayLote(qint64 lote) {
  TARVO_TOMAR(const auto hay, db_.uno(u"SELECT LOTE FROM LoteArticulos WHERE LOTE=?", lote));
  if (hay.nulo()) return fallo(Fallo::NoExiste, catalogo_.textos()(kTxLoteOlvidado));
  return {};
}

Resultado<Lotes::Deshecho> Lotes::deshacer(qint64 lote, const QString& ventana) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  TARVO_INTENTAR(hayLote(lote));
  auto hecho = reponer(lote, lote, ventana);
  if (!hecho) return hecho;
  TARVO_INTENTAR(olvidar(lote));
  TARVO_INTENTAR(t.confirmar());
  if (hecho->fuera.empty()) catalogo_.cambios().loteDevuelto(lote);
  return hecho;
}

Resultado<bool> Lotes::deshacerTramo(qint64 lote, const QString& ventana, Deshecho& hecho) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  TARVO_INTENTAR(hayLote(lote));
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE LoteArticulos SET ACABADO=0 WHERE LOTE=?", lote));
  TARVO_INTENTAR(dejarDeHacer(lote));
  TARVO_TOMAR(const auto van, lotesql::apartarTramo(db_, lote, kTramo, kPorTramo));
  TARVO_TOMAR(const auto esto, reponer(kTramo, lote, ventana));
  TARVO_INTENTAR(olvidar(van > 0 ? kTramo : lote));
  TARVO_INTENTAR(t.confirmar());
  hecho.repuestos += esto.repuestos;
  hecho.quitados += esto.quitados;
  hecho.vistos += van;
  hecho.fuera.insert(hecho.fuera.end(), esto.fuera.begin(), esto.fuera.end());
  if (van == 0 && hecho.fuera.empty()) catalogo_.cambios().loteDevuelto(lote);
  return van > 0;
}

Resultado<std::vector<ClaveArticulo>> Lotes::noVolverian(qint64 lote) {
  TARVO_TOMAR(const auto t, Transaccion::empezar(db_));  // rolled back
  TARVO_INTENTAR(hayLote(lote));
  TARVO_INTENTAR(lotesql::clasificar(db_, lote));
  return lotesql::claves(db_, lote, lotesql::Que::Dejar);
}

Resultado<std::optional<QString>> Lotes::avisoDeVuelta(qint64 lote) {
  TARVO_TOMAR(const auto fuera, noVolverian(lote));
  if (fuera.empty()) return std::nullopt;
  QStringList cuales;
  for (const ClaveArticulo& c : std::span(fuera).first(std::min(fuera.size(), kNombrados)))
    cuales << Ceros(c.seccion, 3) + u' ' + Ceros(c.codigo, 7);
  if (fuera.size() > kNombrados) cuales << u"…"_s;
  return Plural(catalogo_.textos()(kTxNoVolverian), static_cast<int>(fuera.size()))
      .arg(cuales.join(u", "_s));
}

// Related articles of a batch are in one transaction of the caller's.
Resultado<Lotes::Deshecho> Lotes::reponer(qint64 lote, qint64 de, const QString& ventana) {
  TARVO_INTENTAR(lotesql::clasificar(db_, lote));

  using Que = lotesql::Que;
  const auto cambiados = lotesql::claves(db_, lote, Que::Reponer);
  const auto perdidos = lotesql::claves(db_, lote, Que::Reinsertar);
  const auto nuevos = lotesql::claves(db_, lote, Que::Quitar);
  auto fuera = lotesql::claves(db_, lote, Que::Dejar);
  for (const auto* r : {&cambiados, &perdidos, &nuevos})
    if (!*r) return std::unexpected(r->error());
  if (!fuera) return std::unexpected(fuera.error());

  TARVO_INTENTAR(
      lotesql::anotarPrecios(db_, lote, {catalogo_.reloj().ahora(), catalogo_.quien(), ventana}));
  TARVO_INTENTAR(lotesql::devolverHistoria(db_, lote));
  TARVO_INTENTAR(lotesql::soltarCodigos(db_, lote));
  Cambios& cambios = catalogo_.cambios();
  const bool reciente = cambios.esReciente(de);
  if (reciente)
    for (const ClaveArticulo& c : *nuevos) cambios.recordar(c, std::nullopt);
  TARVO_TOMAR(const auto quitados, catalogo_.borrar(*nuevos));
  TARVO_INTENTAR(lotesql::reponer(db_, lote));
  for (const auto* r : {&cambiados, &perdidos})
    for (const ClaveArticulo& c : **r) {
      TARVO_INTENTAR(cambios.ArticuloCambiado(c.seccion, c.codigo));
      if (!reciente) cambios.MarcarSeccion(c.seccion);
    }
  return Deshecho{static_cast<int>(cambiados->size() + perdidos->size()), quitados,
                  std::move(*fuera)};
}

}  // namespace tarvo::articles
