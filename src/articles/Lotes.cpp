#include "articles/Lotes.h"

#include "articles/LoteSql.h"
#include "articles/TextosArticles.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using dao::Transaccion;
using dao::Valor;

namespace {

constexpr qint64 kLotesGuardados = 20;
constexpr qint64 kTramo = 0;  // the batch of articles currently being restored; empty otherwise
constexpr size_t kNombrados = 20;  // articles in a sentence
constexpr int kPorTramo = 200, kPorBarrido = 1000;

// Stock rows are found by the key of their article: a shop has tens of thousands.
struct Guardado {
  QString articulos, movimientos;
};
Guardado guardadoDonde(QStringView condicion) {
  const QString faltan =
      u" FROM PLUSES WHERE CODPLU>=%1 AND (%2) AND NOT EXISTS (SELECT 1 FROM LoteAntes L WHERE "
      u"L.LOTE=? AND L.SECCION=PLUSES.SECCION AND L.CODPLU=PLUSES.CODPLU)"_s.arg(kPrimerCodigo)
          .arg(condicion);
  return {u"INSERT INTO LoteAntes (LOTE, HABIA, %1) SELECT ?, 1, %1%2"_s.arg(
              columnasArticulo().join(u", "), faltan),
          u"INSERT INTO LoteMovs (LOTE, ANTES, %1) SELECT ?, 1, M.%2 FROM (SELECT SECCION AS SEC, "
          u"CODPLU AS COD%3) K CROSS JOIN MovsAlm M ON M.SECCION=K.SEC AND M.CODIGO=K.COD"_s.arg(
              lotesql::contadores().join(u", "), lotesql::contadores().join(u", M."), faltan)};
}

Resultado<> guardarCon(dao::Database& db, const Guardado& como, qint64 lote,
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
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM LoteArticulos WHERE LOTE<=?", lote - kLotesGuardados));
  TARVO_INTENTAR(barrer());
  TARVO_INTENTAR(t.confirmar());
  catalogo_.cambios().loteEmpezado(lote);
  return lote;
}

// A batch may hold 100,000 articles: the remains of forgotten ones are deleted bit by bit.
Resultado<> Lotes::barrer() {
  for (const QString& tabla : lotesql::tablas())
    TARVO_INTENTAR(
        db_.ejecutar(u"DELETE FROM %1 WHERE rowid IN (SELECT rowid FROM %1 WHERE LOTE<=(SELECT "
                     u"max(LOTE) FROM LoteArticulos)-? LIMIT ?)"_s.arg(tabla),
                     kLotesGuardados, kPorBarrido));
  return {};
}

Resultado<> Lotes::guardar(qint64 lote, ClaveArticulo clave) {
  if (clave.deSistema()) return {};
  static const Guardado kUno = guardadoDonde(u"SECCION=? AND CODPLU=?");
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
  const QString faltan =
      u"FROM %1 T CROSS JOIN PLUSES P ON P.SECCION=T.SECCION AND P.CODPLU=T.CODPLU WHERE T.HABIA=1 "
      u"AND NOT EXISTS (SELECT 1 FROM LoteAntes L WHERE L.LOTE=? AND L.SECCION=T.SECCION AND "
      u"L.CODPLU=T.CODPLU)"_s.arg(tabla);
  const QStringList& articulo = columnasArticulo();
  const QStringList stock = lotesql::contadores();
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO LoteMovs (LOTE, ANTES, %1) SELECT ?, 1, M.%2 FROM (SELECT T.SECCION AS SEC, "
      u"T.CODPLU AS COD %3) K CROSS JOIN MovsAlm M ON M.SECCION=K.SEC AND M.CODIGO=K.COD"_s.arg(
          stock.join(u", "), stock.join(u", M."), faltan),
      lote, lote));
  TARVO_INTENTAR(db_.ejecutar(u"INSERT INTO LoteAntes (LOTE, HABIA, %1) SELECT ?, 1, P.%2 %3"_s.arg(
                                  articulo.join(u", "), articulo.join(u", P."), faltan),
                              lote, lote));
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO LoteAntes (LOTE, HABIA, SECCION, CODPLU) SELECT ?, 0, SECCION, "
      u"CODPLU FROM %1 WHERE HABIA=0 ON CONFLICT (LOTE, SECCION, CODPLU) DO NOTHING"_s.arg(tabla),
      lote));
  return {};
}

Resultado<> Lotes::anotarTodos(qint64 lote, const QString& tabla) {
  const QStringList& articulo = columnasArticulo();
  const QStringList stock = lotesql::contadores();
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT OR REPLACE INTO LoteMovs (LOTE, ANTES, %1) SELECT ?, 0, M.%2 FROM %3 T CROSS JOIN "
      u"MovsAlm M ON M.SECCION=T.SECCION AND M.CODIGO=T.CODPLU"_s.arg(stock.join(u", "),
                                                                      stock.join(u", M."), tabla),
      lote));
  TARVO_INTENTAR(
      db_.ejecutar(u"INSERT OR REPLACE INTO LoteDespues (LOTE, HABIA, %1) SELECT ?, 1, %1 FROM "
                   u"%2"_s.arg(articulo.join(u", "), tabla),
                   lote));
  return {};
}

namespace {

// The state of the articles of a condition on LoteAntes L for which none was noted so far.
Resultado<> anotarDonde(dao::Database& db, QStringView donde, std::span<const Valor> valores) {
  const QStringList columnas = columnasArticulo().mid(2);
  TARVO_INTENTAR(db.Execute(
      u"INSERT INTO LoteMovs (LOTE, ANTES, %1) SELECT L.LOTE, 0, M.%2 FROM LoteAntes L INNER JOIN "
      u"MovsAlm M ON M.SECCION=L.SECCION AND M.CODIGO=L.CODPLU WHERE %3"_s.arg(
          lotesql::contadores().join(u", "), lotesql::contadores().join(u", M."), donde),
      valores));
  TARVO_INTENTAR(db.Execute(
      u"INSERT INTO LoteDespues (LOTE, HABIA, SECCION, CODPLU, %1) SELECT L.LOTE, P.CODPLU IS NOT "
      u"NULL, L.SECCION, L.CODPLU, P.%2 FROM LoteAntes L LEFT JOIN PLUSES P ON "
      u"P.SECCION=L.SECCION AND P.CODPLU=L.CODPLU WHERE %3"_s.arg(columnas.join(u", "),
                                                                  columnas.join(u", P."), donde),
      valores));
  return {};
}

}  // namespace

Resultado<> Lotes::anotar(qint64 lote, ClaveArticulo clave) {
  if (clave.deSistema()) return {};
  const std::array<Valor, 3> valores{lote, clave.seccion, clave.codigo};
  return anotarDonde(db_, u"L.LOTE=? AND L.SECCION=? AND L.CODPLU=?", valores);
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
        anotarDonde(db_,
                    u"L.LOTE=? AND NOT EXISTS (SELECT 1 FROM LoteDespues D WHERE D.LOTE=L.LOTE AND "
                    u"D.SECCION=L.SECCION AND D.CODPLU=L.CODPLU)",
                    valores));
  TARVO_INTENTAR(dejarDeHacer(lote));
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE LoteArticulos SET ACABADO=1 WHERE LOTE=?", lote));
  return t.confirmar();
}

Resultado<> Lotes::olvidar(qint64 lote) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  for (const QString& tabla : lotesql::tablas())
    TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM %1 WHERE LOTE=?"_s.arg(tabla), lote));
  return t.confirmar();
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
  TARVO_TOMAR(auto rs, db_.consultar(u"SELECT SECCION, CODPLU FROM LotePorHacer WHERE LOTE=? ORDER "
                                     u"BY SECCION, CODPLU",
                                     lote));
  PorHacer salida{orden.texto(), {}};
  while (!rs->Eof()) {
    salida.claves.push_back({static_cast<int>(rs->entero(0)), rs->entero(1)});
    TARVO_INTENTAR(rs->MoveNext());
  }
  return salida;
}

Resultado<> Lotes::darPorHecho(qint64 lote) {
  TARVO_INTENTAR(hayLote(lote));
  return acabar(lote);
}

// Drops what was still to be done of a batch.
Resultado<> Lotes::dejarDeHacer(qint64 lote) {
  for (const QString& tabla : {u"LotePorHacer"_s, u"LoteOrden"_s})
    TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM %1 WHERE LOTE=?"_s.arg(tabla), lote));
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
