#include "articles/Lotes.h"

#include "articles/LoteSql.h"
#include "articles/TextosArticles.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using dao::Transaccion;
using dao::Valor;

namespace {

constexpr qint64 kLotesGuardados = 20;

// One article at a time is the busiest use: its statements are built once.
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
          u"INSERT INTO LoteMovs (LOTE, ANTES, %1) SELECT ?, 1, M.%2 FROM MovsAlm M WHERE EXISTS "
          u"(SELECT 1%3 AND PLUSES.SECCION=M.SECCION AND PLUSES.CODPLU=M.CODIGO)"_s.arg(
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
  auto t = Transaccion::empezar(db_);
  if (!t) return std::unexpected(t.error());
  const auto ultimo = db_.uno(u"SELECT max(LOTE) FROM LoteArticulos");
  if (!ultimo) return std::unexpected(ultimo.error());
  const qint64 lote = ultimo->entero() + 1;
  TARVO_INTENTAR(db_.ejecutar(u"INSERT INTO LoteArticulos (LOTE, CUANDO, VENTANA) VALUES (?, ?, ?)",
                              lote, reloj_.ahora(), ventana));
  for (const QString& tabla : lotesql::tablas())
    TARVO_INTENTAR(
        db_.ejecutar(u"DELETE FROM %1 WHERE LOTE<=?"_s.arg(tabla), lote - kLotesGuardados));
  TARVO_INTENTAR(t->confirmar());
  return lote;
}

Resultado<> Lotes::guardar(qint64 lote, ClaveArticulo clave) {
  if (clave.deSistema()) return {};
  static const Guardado kUno = guardadoDonde(u"SECCION=? AND CODPLU=?");
  const std::array<Valor, 2> articulo{clave.seccion, clave.codigo};
  TARVO_INTENTAR(guardarCon(db_, kUno, lote, articulo));
  return guardarNuevo(lote, clave);
}

Resultado<> Lotes::guardarNuevo(qint64 lote, ClaveArticulo clave) {
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO LoteAntes (LOTE, HABIA, SECCION, CODPLU) SELECT ?, 0, ?, ? WHERE NOT EXISTS "
      u"(SELECT 1 FROM LoteAntes WHERE LOTE=? AND SECCION=? AND CODPLU=?)",
      lote, clave.seccion, clave.codigo, lote, clave.seccion, clave.codigo));
  return {};
}

Resultado<> Lotes::guardarDonde(qint64 lote, QStringView condicion,
                                std::span<const Valor> parametros) {
  auto t = Transaccion::empezar(db_);
  if (!t) return std::unexpected(t.error());
  TARVO_INTENTAR(guardarCon(db_, guardadoDonde(condicion), lote, parametros));
  return t->confirmar();
}

Resultado<> Lotes::acabar(qint64 lote) {
  auto t = Transaccion::empezar(db_);
  if (!t) return std::unexpected(t.error());
  for (const QString& sql : {u"DELETE FROM LoteDespues WHERE LOTE=?"_s,
                             u"DELETE FROM LoteMovs WHERE LOTE=? AND ANTES=0"_s,
                             u"UPDATE LoteArticulos SET ACABADO=1 WHERE LOTE=?"_s})
    TARVO_INTENTAR(db_.ejecutar(sql, lote));
  const QString columnas = columnasArticulo().mid(2).join(u", P.");
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO LoteDespues (LOTE, HABIA, SECCION, CODPLU, %1) SELECT L.LOTE, P.CODPLU IS NOT "
      u"NULL, L.SECCION, L.CODPLU, P.%2 FROM LoteAntes L LEFT JOIN PLUSES P ON "
      u"P.SECCION=L.SECCION AND P.CODPLU=L.CODPLU WHERE L.LOTE=?"_s.arg(
          columnasArticulo().mid(2).join(u", "), columnas),
      lote));
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO LoteMovs (LOTE, ANTES, %1) SELECT L.LOTE, 0, M.%2 FROM LoteAntes L INNER JOIN "
      u"MovsAlm M ON M.SECCION=L.SECCION AND M.CODIGO=L.CODPLU WHERE L.LOTE=?"_s.arg(
          lotesql::contadores().join(u", "), lotesql::contadores().join(u", M.")),
      lote));
  return t->confirmar();
}

Resultado<> Lotes::olvidar(qint64 lote) {
  auto t = Transaccion::empezar(db_);
  if (!t) return std::unexpected(t.error());
  for (const QString& tabla : lotesql::tablas())
    TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM %1 WHERE LOTE=?"_s.arg(tabla), lote));
  return t->confirmar();
}

Resultado<std::optional<Lotes::Lote>> Lotes::ultimo(const QString& ventana) {
  auto rs = db_.consultar(
      u"SELECT A.LOTE, A.CUANDO, (SELECT count(*) FROM LoteAntes L WHERE L.LOTE=A.LOTE) "
      u"FROM LoteArticulos A WHERE A.VENTANA=? AND EXISTS (SELECT 1 FROM LoteAntes E WHERE "
      u"E.LOTE=A.LOTE) ORDER BY A.LOTE DESC LIMIT 1",
      ventana);
  if (!rs) return std::unexpected(rs.error());
  if ((*rs)->Eof()) return std::nullopt;
  return Lote{(*rs)->entero(0), (*rs)->fecha(1), (*rs)->entero(2)};
}

Resultado<Lotes::Deshecho> Lotes::deshacer(qint64 lote, const QString& ventana) {
  auto t = Transaccion::empezar(db_);
  if (!t) return std::unexpected(t.error());
  const auto acabado = db_.uno(u"SELECT ACABADO FROM LoteArticulos WHERE LOTE=?", lote);
  if (!acabado) return std::unexpected(acabado.error());
  if (acabado->nulo()) return fallo(Fallo::NoExiste, catalogo_.textos()(kTxLoteOlvidado));
  TARVO_INTENTAR(lotesql::clasificar(db_, lote, acabado->logico()));

  using Que = lotesql::Que;
  const auto cambiados = lotesql::claves(db_, lote, Que::Reponer);
  const auto perdidos = lotesql::claves(db_, lote, Que::Reinsertar);
  const auto nuevos = lotesql::claves(db_, lote, Que::Quitar);
  auto fuera = lotesql::claves(db_, lote, Que::Dejar);
  for (const auto* r : {&cambiados, &perdidos, &nuevos})
    if (!*r) return std::unexpected(r->error());
  if (!fuera) return std::unexpected(fuera.error());

  TARVO_INTENTAR(lotesql::anotarPrecios(db_, lote, {reloj_.ahora(), catalogo_.quien(), ventana}));
  TARVO_INTENTAR(lotesql::soltarCodigos(db_, lote));
  const auto quitados = catalogo_.borrar(*nuevos);
  if (!quitados) return std::unexpected(quitados.error());
  TARVO_INTENTAR(lotesql::reponer(db_, lote));
  for (const auto* r : {&cambiados, &perdidos})
    for (const ClaveArticulo& c : **r)
      TARVO_INTENTAR(catalogo_.cambios().ArticuloCambiado(c.seccion, c.codigo));
  TARVO_INTENTAR(olvidar(lote));
  TARVO_INTENTAR(t->confirmar());
  return Deshecho{static_cast<int>(cambiados->size() + perdidos->size()), *quitados,
                  std::move(*fuera)};
}

}  // namespace tarvo::articles
