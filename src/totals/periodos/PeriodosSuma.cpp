// Adding periods into one another.
#include "core/dao/Marcas.h"
#include "core/dao/Recorrido.h"
#include "totals/TextosTotals.h"
#include "totals/periodos/FilasTotales.h"
#include "totals/periodos/Periodos.h"

namespace tarvo::totals {

namespace {

Resultado<> ponerMarca(dao::Database& db, qint64 link, int tipo, bool valor) {
  TARVO_INTENTAR(db.ejecutar(
      dao::conMarcas(u"UPDATE COLUMNA SET {marca}=? WHERE LINK=?", {{u"marca", marcaDe(tipo)}}),
      valor, link));
  return {};
}

std::unexpected<Error> sinPeriodo(qint64 link, const Textos& textos) {
  return fallo(Fallo::NoExiste, textos(kTxSinPeriodo, {link}));
}

}  // namespace

Resultado<> Periodos::SumarPeriodo(qint64 destino, qint64 origen, int signo) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  for (const ClaseTotal& c : enVigor(a_)) {
    const QString filas = dao::conMarcas(u"SELECT * FROM {tabla} WHERE LINK=?",
                                         {{u"tabla", QString::fromUtf16(c.tabla)}});
    TARVO_INTENTAR(sumarFilas(db_, c, destino, filas, origen, signo, textos_));
  }
  return t.confirmar();
}

std::optional<Periodo> Periodos::mayorDe(int tipo, const Periodo& origen) {
  if (tipo < kSemanal || tipo > kAnual || origen.tipo == tipo) return std::nullopt;
  const Periodo mayor = LimitesPeriodo(tipo, origen.desde, origen.desde);
  if (LimitesPeriodo(tipo, origen.hasta, origen.hasta) != mayor) return std::nullopt;
  return mayor;
}

Resultado<bool> Periodos::sinVentas(qint64 link) {
  for (const ClaseTotal& c : enVigor(a_)) {
    TARVO_TOMAR(const auto n,
                db_.uno(dao::conMarcas(u"SELECT count(*) FROM {tabla} WHERE LINK=? AND (CON<>0 OR "
                                       u"PES<>0 OR [IMP]<>0 OR SCO<>0)",
                                       {{u"tabla", QString::fromUtf16(c.tabla)}}),
                        link));
    if (n.entero() > 0) return false;
  }
  return true;
}

Resultado<QString> Periodos::sumasDe(qint64 link) {
  TARVO_TOMAR(const auto c, columna(link));
  if (!c) return QString();
  QStringList sumas;
  for (const ClaseTotal& k : todasLasClases())
    TARVO_INTENTAR(dao::recorrer(
        db_.consultar(dao::conMarcas(u"SELECT count(*), sum(CON), sum(PES), sum([IMP]), sum(SCO), "
                                     u"sum((CODI mod 1009)*CON), sum((CODI mod 1009)*[IMP]) FROM "
                                     u"{tabla} WHERE LINK=?",
                                     {{u"tabla", QString::fromUtf16(k.tabla)}}),
                      link),
        [&](const dao::Recordset& fila) {
          for (int i = 0; i < 7; ++i) sumas << QString::number(fila.entero(i));
        }));
  return sumas.join(u' ');
}

// The number of the larger period; it is created if missing.
Resultado<std::optional<qint64>> Periodos::destinoDe(int tipo, const Periodo& origen) {
  const auto mayor = mayorDe(tipo, origen);
  if (!mayor) return std::nullopt;
  TARVO_TOMAR(const auto c, BuscarPeriodo(tipo, mayor->desde, mayor->hasta));
  if (c) return c->LINK;
  return CrearPeriodo(tipo, mayor->desde, mayor->hasta, false, QString());
}

Resultado<bool> Periodos::moverAcumulado(int tipo, const Columna& origen, int signo) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(const auto ahora, columna(origen.LINK));  // not as it was when it was read
  if (!ahora || ahora->acumulado(tipo) == (signo > 0)) return false;
  TARVO_TOMAR(const auto destino, destinoDe(tipo, origen.periodo));
  if (!destino) return false;
  if (signo > 0) TARVO_INTENTAR(saldarAcumulado(tipo, origen));
  TARVO_INTENTAR(SumarPeriodo(*destino, origen.LINK, signo));
  TARVO_INTENTAR(ponerMarca(db_, origen.LINK, tipo, signo > 0));
  TARVO_INTENTAR(t.confirmar());
  return true;
}

Resultado<bool> Periodos::AcumularPeriodo(int tipo, const Columna& origen) {
  return moverAcumulado(tipo, origen, 1);
}

Resultado<bool> Periodos::DesacumularPeriodo(int tipo, const Columna& origen) {
  return moverAcumulado(tipo, origen, -1);
}

Resultado<Periodos::Marcas> Periodos::DesacumularTodo(qint64 link) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(const auto c, columna(link));
  if (!c) return sinPeriodo(link, textos_);
  Marcas m;
  for (const auto& [tipo, marca] :
       {std::pair{kSemanal, &m.a2}, {kMensual, &m.a3}, {kAnual, &m.a4}}) {
    TARVO_TOMAR(const auto hecho, DesacumularPeriodo(tipo, *c));
    *marca = hecho;
  }
  m.stk = -c->stkADO;
  if (m.stk != 0) TARVO_INTENTAR(almacenes_.DescontarVenta(link, m.stk));
  TARVO_INTENTAR(t.confirmar());
  return m;
}

Resultado<> Periodos::ReacumularTodo(qint64 link, const Marcas& marcas) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(const auto c, columna(link));
  if (!c) return sinPeriodo(link, textos_);
  for (const auto& [tipo, marca] :
       {std::pair{kSemanal, marcas.a2}, {kMensual, marcas.a3}, {kAnual, marcas.a4}}) {
    if (!marca) continue;
    TARVO_TOMAR(const auto cabe, AcumularPeriodo(tipo, *c));
    if (!cabe)
      return fallo(Fallo::Restriccion,
                   textos_(kTxSinMayor, {TextoPeriodo(c->periodo), NombreTipoPeriodo(tipo)}));
  }
  if (marcas.stk != 0) TARVO_INTENTAR(almacenes_.DescontarVenta(link, -marcas.stk));
  return t.confirmar();
}

}  // namespace tarvo::totals
