#include "stock/Movimientos.h"

namespace tarvo::stock {

namespace {

// `cambio` is the new value of an existing counter, with {campo} for the counter and ? for the
// value.
Resultado<qint64> escribirContador(dao::Database& db, const Casilla& d, int contador, qint64 valor,
                                   QStringView cambio) {
  const QString campo = QString::fromUtf16(kContadores[static_cast<size_t>(contador)]);
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db));
  auto filas = db.ejecutar(
      dao::conMarcas(
          u"UPDATE MovsAlm SET {campo}={cambio} WHERE CODALM=? AND SECCION=? AND CODIGO=?",
          {{u"campo", campo}, {u"cambio", dao::conMarcas(cambio, {{u"campo", campo}})}}),
      valor, d.almacen, d.seccion, d.codigo);
  if (!filas) return filas;
  if (*filas == 0) {
    QStringList ceros;
    for (int i = 0; i < 6; ++i)
      ceros << (i == contador ? QStringLiteral("?") : QStringLiteral("0"));
    filas = db.ejecutar(
        dao::conMarcas(u"INSERT INTO MovsAlm (CODALM, SECCION, CODIGO, Inicial, Entrada, Compra, "
                       u"Salida, Venta, Merma) VALUES (?, ?, ?, {contadores})",
                       {{u"contadores", ceros.join(u", ")}}),
        d.almacen, d.seccion, d.codigo, valor);
    if (!filas) return filas;
  }
  TARVO_INTENTAR(t.confirmar());
  return filas;
}

}  // namespace

Resultado<> moverContador(dao::Database& db, const Casilla& donde, int contador, qint64 cantidad) {
  TARVO_INTENTAR(escribirContador(db, donde, contador, cantidad, u"coalesce({campo}, 0)+?"));
  return {};
}

Resultado<qint64> fijarContador(dao::Database& db, const Casilla& donde, int contador,
                                qint64 valor) {
  return escribirContador(db, donde, contador, valor, u"?");
}

Resultado<> borrarCeros(dao::Database& db, int almacen) {
  QStringList ceros;
  for (const char16_t* c : kContadores) ceros << QStringLiteral("coalesce(%1, 0)=0").arg(c);
  TARVO_INTENTAR(
      db.ejecutar(dao::conMarcas(u"DELETE FROM MovsAlm WHERE (?<0 OR CODALM=?) AND {ceros}",
                                 {{u"ceros", ceros.join(u" AND ")}}),
                  almacen, almacen));
  return {};
}

}  // namespace tarvo::stock
