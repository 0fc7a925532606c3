// Replaced periods. The larger periods and the stock keep a replaced period's sales. Its rows and
// marks stay in two tables, so that they can be taken out to the cent when the new version is
// added.
#include "totals/TextosTotals.h"
#include "totals/periodos/FilasTotales.h"
#include "totals/periodos/Periodos.h"

namespace tarvo::totals {

namespace {

QString filasGuardadas(const ClaseTotal& c) {
  return dao::conMarcas(
      u"SELECT {claves}, CON, PES, [IMP], SCO FROM TotSusti WHERE ID=? AND CLASE={clase}",
      {{u"claves", clavesDe(c)}, {u"clase", QString::number(numeroDe(c.tipo))}});
}

Resultado<> guardarFilas(dao::Database& db, const ClaseTotal& c, qint64 id, qint64 link) {
  const QString sql = dao::conMarcas(
      u"INSERT INTO TotSusti (ID, CLASE, GRUPO, CODI, HORA, CON, PES, [IMP], SCO) "
      u"SELECT ?, ?, GRUPO, CODI, {hora}, CON, PES, [IMP], SCO FROM {tabla} WHERE LINK=?",
      {{u"hora", horaDe(c)}, {u"tabla", QString::fromUtf16(c.tabla)}});
  TARVO_INTENTAR(db.ejecutar(sql, id, numeroDe(c.tipo), link));
  return {};
}

}  // namespace

Resultado<> Periodos::recordar(const Columna& vieja) {
  if (!vieja.ACUM2 && !vieja.ACUM3 && !vieja.ACUM4 && vieja.stkADO == 0) return {};
  TARVO_TOMAR(const auto ultimo, db_.uno(u"SELECT max(ID) FROM (SELECT ID FROM Sustituidos UNION "
                                         u"ALL SELECT ID FROM PapeleraSusti) x"));
  const qint64 id = ultimo.entero() + 1;
  const Periodo& p = vieja.periodo;
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO Sustituidos (ID, TIPO, FECHA1, FECHAF, ACUM2, ACUM3, ACUM4, stkADO) "
      u"VALUES (?, ?, ?, ?, ?, ?, ?, ?)",
      id, p.tipo, p.desde, p.hasta, vieja.ACUM2, vieja.ACUM3, vieja.ACUM4, vieja.stkADO));
  for (const ClaseTotal& c : enVigor(a_)) TARVO_INTENTAR(guardarFilas(db_, c, id, vieja.LINK));
  return {};
}

Resultado<qint64> Periodos::sustituir(const Columna& vieja, const QString& descr) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  const auto actual = columna(vieja.LINK);  // its marks as they are now
  if (!actual) return std::unexpected(actual.error());
  if (!*actual) return fallo(Fallo::NoExiste, textos_(kTxSinPeriodo, {vieja.LINK}));
  const Columna& c = **actual;
  TARVO_INTENTAR(recordar(c));
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM COLUMNA WHERE LINK=?", c.LINK));
  const auto nuevo = CrearPeriodo(c.periodo.tipo, c.periodo.desde, c.periodo.hasta, true, descr);
  if (!nuevo) return nuevo;
  if (*nuevo != c.LINK)
    for (const ClaseTotal& k : enVigor(a_))
      TARVO_INTENTAR(db_.ejecutar(dao::conMarcas(u"UPDATE {tabla} SET LINK=? WHERE LINK=?",
                                                 {{u"tabla", QString::fromUtf16(k.tabla)}}),
                                  *nuevo, c.LINK));
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE Sumados SET LINK=? WHERE LINK=?", *nuevo, c.LINK));
  TARVO_INTENTAR(renumerarNotas(c.LINK, *nuevo));
  TARVO_INTENTAR(t.confirmar());
  return nuevo;
}

// The earlier versions of a period that are still where `marca` says.
Resultado<std::vector<Periodos::Sustituido>> Periodos::sustituidos(const Periodo& p,
                                                                   const QString& marca) {
  return dao::reunir(
      db_.consultar(dao::conMarcas(u"SELECT ID, stkADO FROM Sustituidos WHERE TIPO=? AND FECHA1=? "
                                   u"AND FECHAF=? AND {marca}<>0 ORDER BY ID",
                                   {{u"marca", marca}}),
                    p.tipo, p.desde, p.hasta),
      [&p](const dao::Recordset& fila) {
        return Sustituido{fila.entero(0), p, static_cast<int>(fila.entero(1))};
      });
}

Resultado<bool> Periodos::tieneAnterior(int tipo, const Columna& c) {
  TARVO_TOMAR(const auto viejas, sustituidos(c.periodo, marcaDe(tipo)));
  return !viejas.empty();
}

Resultado<> Periodos::moverSustituido(const Sustituido& s, int tipo, int signo) {
  TARVO_TOMAR(const auto destino, destinoDe(tipo, s.periodo));
  if (!destino) return {};
  for (const ClaseTotal& c : enVigor(a_))
    TARVO_INTENTAR(sumarFilas(db_, c, *destino, filasGuardadas(c), s.ID, signo, textos_));
  return {};
}

Resultado<> Periodos::olvidarMarca(const Sustituido& s, int tipo) {
  TARVO_INTENTAR(db_.ejecutar(
      dao::conMarcas(u"UPDATE Sustituidos SET {marca}=0 WHERE ID=?", {{u"marca", marcaDe(tipo)}}),
      s.ID));
  return {};
}

// A period has got other dates: what a larger one holds of its earlier versions goes to the larger
// one of the new dates, like the sales of the period itself. Before the notes get the new dates.
Resultado<> Periodos::mudarSustituidos(const Periodo& de, const Periodo& a) {
  for (int tipo = kSemanal; tipo <= kAnual; ++tipo) {
    const auto destino = mayorDe(tipo, a);
    if (destino == mayorDe(tipo, de)) continue;
    TARVO_TOMAR(const auto viejas, sustituidos(de, marcaDe(tipo)));
    for (const Sustituido& s : viejas) {
      TARVO_INTENTAR(moverSustituido(s, tipo, -1));
      TARVO_INTENTAR(destino ? moverSustituido({s.ID, a, s.stkADO}, tipo, 1)
                             : olvidarMarca(s, tipo));
    }
  }
  return limpiarSustituidos();
}

Resultado<> Periodos::saldarAcumulado(int tipo, const Columna& nueva) {
  if (tipo < kSemanal || tipo > kAnual) return {};
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(const auto viejas, sustituidos(nueva.periodo, marcaDe(tipo)));
  for (const Sustituido& s : viejas) {
    TARVO_INTENTAR(moverSustituido(s, tipo, -1));
    TARVO_INTENTAR(olvidarMarca(s, tipo));
  }
  if (!viejas.empty()) TARVO_INTENTAR(limpiarSustituidos());
  return t.confirmar();
}

Resultado<> Periodos::saldarStock(const Columna& nueva) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(const auto viejas, sustituidos(nueva.periodo, QStringLiteral("stkADO")));
  for (const Sustituido& s : viejas) {
    const QString filas = dao::conMarcas(
        u"SELECT GRUPO, CODI, CON, PES FROM TotSusti WHERE ID={id} AND CLASE={clase}",
        {{u"id", QString::number(s.ID)}, {u"clase", QString::number(numeroDe(TipoTotal::PLUs))}});
    TARVO_INTENTAR(almacenes_.descontarFilas(filas, -s.stkADO));
    TARVO_INTENTAR(db_.ejecutar(u"UPDATE Sustituidos SET stkADO=0 WHERE ID=?", s.ID));
  }
  if (!viejas.empty()) TARVO_INTENTAR(limpiarSustituidos());
  return t.confirmar();
}

// Decided by the row as it is now: `c` may have been read before another window discounted it.
Resultado<Descuento> Periodos::DescontarPeriodo(const Columna& c, bool deshacer) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(const auto ahora, columna(c.LINK));
  if (!ahora || !ahora->stkABLE) return Descuento::NoProcede;
  if (!deshacer && ahora->stkADO >= 1) return Descuento::YaEstaba;
  if (!deshacer) {
    TARVO_INTENTAR(almacenes_.puedeDescontar(c.LINK));
    TARVO_INTENTAR(saldarStock(*ahora));
  }
  TARVO_TOMAR(const auto hecho, almacenes_.DescontarVenta(c.LINK, deshacer ? -1 : 1));
  TARVO_INTENTAR(t.confirmar());
  return hecho ? Descuento::Hecho : Descuento::NoProcede;
}

Resultado<int> Periodos::DescontarVarios(const std::vector<qint64>& links, bool deshacer) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  int cuantos = 0;
  for (const qint64 link : links) {
    TARVO_TOMAR(const auto c, columna(link));
    if (!c || (deshacer && c->stkADO < 1)) continue;
    TARVO_TOMAR(const auto hecho, DescontarPeriodo(*c, deshacer));
    cuantos += hecho == Descuento::Hecho ? 1 : 0;
  }
  TARVO_INTENTAR(t.confirmar());
  return cuantos;
}

Resultado<> Periodos::olvidarSustituidosEn(const Periodo& mayor) {
  if (mayor.tipo < kSemanal || mayor.tipo > kAnual) return {};
  TARVO_INTENTAR(db_.ejecutar(
      dao::conMarcas(
          u"UPDATE Sustituidos SET {marca}=0 WHERE FECHA1>=? AND FECHAF<=? AND {marca}<>0",
          {{u"marca", marcaDe(mayor.tipo)}}),
      mayor.desde, mayor.hasta));
  return limpiarSustituidos();
}

Resultado<> Periodos::limpiarSustituidos() {
  TARVO_INTENTAR(
      db_.ejecutar(u"DELETE FROM Sustituidos WHERE ACUM2=0 AND ACUM3=0 AND ACUM4=0 AND stkADO=0"));
  TARVO_INTENTAR(
      db_.ejecutar(u"DELETE FROM TotSusti WHERE ID NOT IN (SELECT ID FROM Sustituidos)"));
  return {};
}

}  // namespace tarvo::totals
