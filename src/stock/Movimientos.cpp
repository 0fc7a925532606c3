#include "stock/Movimientos.h"

namespace tarvo::stock {

namespace {

// `cambio` is what becomes of a counter that is there, @ being the counter and ? the value.
Resultado<qint64> escribirContador(dao::Database& db, const Casilla& d, int contador, qint64 valor,
                                   const QString& cambio) {
  const QString campo = QString::fromUtf16(kContadores[static_cast<size_t>(contador)]);
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db));
  auto filas = db.ejecutar(
      QStringLiteral("UPDATE MovsAlm SET %1=%2 WHERE CODALM=? AND SECCION=? AND CODIGO=?")
          .arg(campo, QString(cambio).replace(u'@', campo)),
      valor, d.almacen, d.seccion, d.codigo);
  if (!filas) return filas;
  if (*filas == 0) {
    QStringList ceros;
    for (int i = 0; i < 6; ++i)
      ceros << (i == contador ? QStringLiteral("?") : QStringLiteral("0"));
    filas = db.ejecutar(QStringLiteral("INSERT INTO MovsAlm (CODALM, SECCION, CODIGO, Inicial, "
                                       "Entrada, Compra, Salida, Venta, Merma) "
                                       "VALUES (?, ?, ?, %1)")
                            .arg(ceros.join(u", ")),
                        d.almacen, d.seccion, d.codigo, valor);
    if (!filas) return filas;
  }
  TARVO_INTENTAR(t.confirmar());
  return filas;
}

}  // namespace

Resultado<> moverContador(dao::Database& db, const Casilla& donde, int contador, qint64 cantidad) {
  TARVO_INTENTAR(
      escribirContador(db, donde, contador, cantidad, QStringLiteral("coalesce(@, 0)+?")));
  return {};
}

Resultado<qint64> fijarContador(dao::Database& db, const Casilla& donde, int contador,
                                qint64 valor) {
  return escribirContador(db, donde, contador, valor, QStringLiteral("?"));
}

Resultado<> borrarCeros(dao::Database& db, int almacen) {
  QStringList ceros;
  for (const char16_t* c : kContadores) ceros << QStringLiteral("coalesce(%1, 0)=0").arg(c);
  TARVO_INTENTAR(db.ejecutar(QStringLiteral("DELETE FROM MovsAlm WHERE (?<0 OR CODALM=?) AND %1")
                                 .arg(ceros.join(u" AND ")),
                             almacen, almacen));
  return {};
}

}  // namespace tarvo::stock
