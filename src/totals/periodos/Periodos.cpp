#include "totals/periodos/Periodos.h"

#include <algorithm>

#include "totals/TextosTotals.h"
#include "totals/periodos/FilasTotales.h"

namespace tarvo::totals {

namespace {

constexpr QStringView kColumnas =
    u"SELECT LINK, TIPO, FECHA1, FECHAF, DESCR, ACUM2, ACUM3, ACUM4, stkABLE, stkADO FROM COLUMNA "
    u"{condicion}";

Columna columnaDe(const dao::Recordset& r) {
  Columna c;
  c.LINK = r.entero(0);
  c.periodo = {static_cast<int>(r.entero(1)), r.fecha(2), r.fecha(3)};
  c.DESCR = r.texto(4);
  c.ACUM2 = r.logico(5), c.ACUM3 = r.logico(6), c.ACUM4 = r.logico(7), c.stkABLE = r.logico(8);
  c.stkADO = static_cast<int>(r.entero(9));
  return c;
}

template <class... P>
Resultado<std::vector<Columna>> columnas(dao::Database& db, const QString& condicion,
                                         const P&... p) {
  return dao::reunir(db.consultar(dao::conMarcas(kColumnas, {{u"condicion", condicion}}), p...),
                     columnaDe);
}

template <class... P>
Resultado<std::optional<Columna>> primera(dao::Database& db, const QString& condicion,
                                          const P&... p) {
  TARVO_TOMAR(auto v, columnas(db, condicion, p...));
  return v.empty() ? std::nullopt : std::optional(std::move(v.front()));
}

}  // namespace

Periodos::Periodos(dao::Database& db, const Ajustes& ajustes, stock::Almacenes& almacenes,
                   const Textos& textos)
    : db_(db), a_(ajustes), almacenes_(almacenes), textos_(textos) {}

Resultado<std::vector<Columna>> Periodos::lista(int tipo) {
  return tipo == 0 ? columnas(db_, QStringLiteral("ORDER BY FECHA1, LINK"))
                   : columnas(db_, QStringLiteral("WHERE TIPO=? ORDER BY FECHA1, LINK"), tipo);
}

Resultado<std::optional<Columna>> Periodos::columna(qint64 link) {
  return primera(db_, QStringLiteral("WHERE LINK=?"), link);
}

Resultado<qint64> Periodos::ultimo() {
  TARVO_TOMAR(const auto link,
              db_.uno(u"SELECT LINK FROM COLUMNA ORDER BY FECHA1 DESC, LINK DESC"));
  return link.entero();
}

Resultado<std::optional<Columna>> Periodos::BuscarPeriodo(int tipo, Fecha desde, Fecha hasta) {
  const Periodo p = LimitesPeriodo(tipo, desde, hasta);
  return primera(db_, QStringLiteral("WHERE TIPO=? AND FECHA1=? AND FECHAF=? ORDER BY LINK"),
                 p.tipo, p.desde, p.hasta);
}

Resultado<qint64> Periodos::CrearPeriodo(int tipo, Fecha desde, Fecha hasta, bool stockable,
                                         const QString& descr) {
  const Periodo p = LimitesPeriodo(tipo, desde, hasta);
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(const auto ultimo, db_.uno(u"SELECT max(LINK) FROM (SELECT LINK FROM COLUMNA UNION "
                                         u"ALL SELECT LINK FROM PapeleraPer) x"));
  const qint64 link = std::max<qint64>(ultimo.entero(), 0) + 1;
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO COLUMNA (LINK, TIPO, FECHA1, FECHAF, DESCR, stkABLE) VALUES (?, ?, ?, ?, ?, ?)",
      link, p.tipo, p.desde, p.hasta, descr, stockable));
  TARVO_INTENTAR(t.confirmar());
  return link;
}

Resultado<> Periodos::borrarFilas(qint64 link, std::optional<TipoTotal> clase) {
  for (const ClaseTotal& k : enVigor(a_))
    if (!clase || clase == k.tipo)
      TARVO_INTENTAR(db_.ejecutar(dao::conMarcas(u"DELETE FROM {tabla} WHERE LINK=?",
                                                 {{u"tabla", QString::fromUtf16(k.tabla)}}),
                                  link));
  // The origin of the rows goes with them: the number may be another period's some day.
  if (db_.existeTabla(u"Origenes"))
    TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM Origenes WHERE LINK=? AND (CLASE=? OR ?=0)", link,
                                numeroDe(clase, 0), numeroDe(clase, 0)));
  return {};
}

Resultado<> Periodos::VaciarPeriodo(qint64 link) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(const auto c, columna(link));
  if (c) TARVO_INTENTAR(olvidarSustituidosEn(c->periodo));
  TARVO_INTENTAR(borrarFilas(link, {}));
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM Sumados WHERE LINK=?", link));
  return t.confirmar();
}

Resultado<std::vector<Periodo>> Periodos::saldriaDe(qint64 link, int tipo, Fecha desde,
                                                    Fecha hasta) {
  TARVO_TOMAR(const auto c, columna(link));
  std::vector<Periodo> v;
  if (!c) return v;
  const Periodo nuevo = LimitesPeriodo(tipo, desde, hasta);
  for (int mayor = kSemanal; mayor <= kAnual; ++mayor)
    if (c->acumulado(mayor) && !mayorDe(mayor, nuevo))
      v.push_back(mayorDe(mayor, c->periodo).value_or(Periodo{mayor, c->periodo.desde, {}}));
  return v;
}

Resultado<> Periodos::CambiarPeriodo(qint64 link, int tipo, Fecha desde, Fecha hasta,
                                     bool aunqueSalga) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  const Periodo p = LimitesPeriodo(tipo, desde, hasta);
  TARVO_TOMAR(const auto otro, BuscarPeriodo(p.tipo, p.desde, p.hasta));
  if (otro && otro->LINK == link) return t.confirmar();
  if (otro) return fallo(Fallo::Duplicado, textos_(kTxPeriodoRepetido, {TextoPeriodo(p)}));
  TARVO_TOMAR(const auto salen, saldriaDe(link, tipo, desde, hasta));
  if (!salen.empty() && !aunqueSalga)
    return fallo(Fallo::Restriccion, textos_(kTxSaldriaDe, {TextoPeriodos(salen)}));
  TARVO_TOMAR(auto marcas, DesacumularTodo(link));
  for (const Periodo& mayor : salen) marcas.de(mayor.tipo) = false;
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE COLUMNA SET TIPO=?, FECHA1=?, FECHAF=? WHERE LINK=?", p.tipo,
                              p.desde, p.hasta, link));
  TARVO_INTENTAR(ReacumularTodo(link, marcas));
  return t.confirmar();
}

Resultado<> Periodos::BorrarPeriodo(qint64 link, std::optional<TipoTotal> clase) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  if (clase) {
    TARVO_INTENTAR(borrarFilas(link, clase));
  } else {
    TARVO_TOMAR(const auto c, columna(link));
    if (c) TARVO_INTENTAR(soltarAcumulados(c->periodo));
    TARVO_INTENTAR(quitarPeriodo(link));
  }
  return t.confirmar();
}

Resultado<> Periodos::BorrarEntregado(qint64 link) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_INTENTAR(quitarPeriodo(link));
  return t.confirmar();
}

Resultado<> Periodos::quitarPeriodo(qint64 link) {
  TARVO_INTENTAR(VaciarPeriodo(link));
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM COLUMNA WHERE LINK=?", link));
  return {};
}

Resultado<> Periodos::soltarAcumulados(const Periodo& mayor) {
  if (mayor.tipo < kSemanal || mayor.tipo > kAnual) return {};
  for (const QString& tabla : {QStringLiteral("COLUMNA"), QStringLiteral("PapeleraPer")})
    TARVO_INTENTAR(db_.ejecutar(
        dao::conMarcas(u"UPDATE {tabla} SET {marca}=0 WHERE FECHA1>=? AND FECHAF<=? AND TIPO<>? "
                       u"AND {marca}<>0",
                       {{u"tabla", tabla}, {u"marca", QStringLiteral("ACUM%1").arg(mayor.tipo)}}),
        mayor.desde, mayor.hasta, mayor.tipo));
  return {};
}

Resultado<bool> Periodos::BorrarPorFechas(int tipo, Fecha desde, Fecha hasta) {
  TARVO_TOMAR(const auto c, BuscarPeriodo(tipo, desde, hasta));
  if (!c) return false;
  TARVO_INTENTAR(BorrarPeriodo(c->LINK));
  return true;
}

}  // namespace tarvo::totals
