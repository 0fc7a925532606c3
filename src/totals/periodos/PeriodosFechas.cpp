// A period that gets other dates, or another number: what is noted about it elsewhere follows it.
#include "core/dao/Marcas.h"
#include "core/dao/Recorrido.h"
#include "totals/TextosTotals.h"
#include "totals/periodos/Periodos.h"

namespace tarvo::totals {

namespace {

bool sinTabla(dao::Database& db, const NotaDePeriodo& nota) {
  return !db.existeTabla(nota.tabla);
}

QString conTabla(QStringView sql, const NotaDePeriodo& nota) {
  return dao::conMarcas(sql, {{u"tabla", nota.tabla}});
}

}  // namespace

// The tables of the runner's debts are its own; a program may not have them yet.
std::vector<NotaDePeriodo> notasDePeriodo() {
  return {
      {QStringLiteral("Sumados"), false},           {QStringLiteral("PapeleraSumados"), false},
      {QStringLiteral("Sustituidos"), false},       {QStringLiteral("ExportesPendientes"), true},
      {QStringLiteral("PeriodosPendientes"), true}, {QStringLiteral("BorradosPendientes"), true}};
}

Resultado<> Periodos::mudarNotas(qint64 link, const Periodo& de, const Periodo& a) {
  for (const NotaDePeriodo& nota : notasDePeriodo()) {
    if (sinTabla(db_, nota)) continue;
    if (nota.porNumero)
      TARVO_INTENTAR(db_.ejecutar(conTabla(u"UPDATE {tabla} SET FECHA1=?, FECHAF=? WHERE LINK=? "
                                           u"AND FECHA1=? AND FECHAF=?",
                                           nota),
                                  a.desde, a.hasta, link, de.desde, de.hasta));
    else
      TARVO_INTENTAR(db_.ejecutar(conTabla(u"UPDATE {tabla} SET TIPO=?, FECHA1=?, FECHAF=? WHERE "
                                           u"TIPO=? AND FECHA1=? AND FECHAF=?",
                                           nota),
                                  a.tipo, a.desde, a.hasta, de.tipo, de.desde, de.hasta));
  }
  return {};
}

// An old version that reached its file is not owed there any more.
Resultado<> Periodos::renumerarNotas(qint64 viejo, qint64 nuevo) {
  for (const NotaDePeriodo& nota : notasDePeriodo()) {
    if (!nota.porNumero || sinTabla(db_, nota)) continue;
    if (nota.tabla == u"ExportesPendientes")
      TARVO_INTENTAR(db_.ejecutar(
          u"DELETE FROM ExportesPendientes WHERE LINK=? AND MARCA IN (SELECT MARCA FROM Exportes)",
          viejo));
    if (nuevo == viejo) continue;
    TARVO_INTENTAR(db_.ejecutar(conTabla(u"DELETE FROM {tabla} WHERE LINK=?", nota), nuevo));
    TARVO_INTENTAR(
        db_.ejecutar(conTabla(u"UPDATE {tabla} SET LINK=? WHERE LINK=?", nota), nuevo, viejo));
  }
  return {};
}

Resultado<> olvidarNotasSinPeriodo(dao::Database& db, const QString& tabla) {
  TARVO_INTENTAR(db.ejecutar(
      dao::conMarcas(u"DELETE FROM {tabla} WHERE NOT EXISTS (SELECT 1 FROM COLUMNA x WHERE "
                     u"x.LINK={tabla}.LINK AND x.FECHA1={tabla}.FECHA1 AND "
                     u"x.FECHAF={tabla}.FECHAF) AND NOT EXISTS (SELECT 1 FROM PapeleraPer x WHERE "
                     u"x.LINK={tabla}.LINK AND x.FECHA1={tabla}.FECHA1 AND "
                     u"x.FECHAF={tabla}.FECHAF)",
                     {{u"tabla", tabla}})));
  return {};
}

Resultado<std::vector<Periodo>> Periodos::saldriaDe(qint64 link, int tipo, Fecha desde,
                                                    Fecha hasta) {
  TARVO_TOMAR(const auto c, columna(link));
  std::vector<Periodo> v;
  if (!c) return v;
  const Periodo nuevo = LimitesPeriodo(tipo, desde, hasta);
  for (int mayor = kSemanal; mayor <= kAnual; ++mayor)
    if (!mayorDe(mayor, nuevo)) {
      TARVO_TOMAR(const auto anterior, tieneAnterior(mayor, *c));
      if (c->acumulado(mayor) || anterior)
        v.push_back(mayorDe(mayor, c->periodo).value_or(Periodo{mayor, c->periodo.desde, {}}));
    }
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
  TARVO_TOMAR(const auto antes, columna(link));
  TARVO_TOMAR(auto marcas, DesacumularTodo(link));
  for (const Periodo& mayor : salen) marcas.de(mayor.tipo) = false;
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE COLUMNA SET TIPO=?, FECHA1=?, FECHAF=? WHERE LINK=?", p.tipo,
                              p.desde, p.hasta, link));
  TARVO_INTENTAR(mudarSustituidos(antes->periodo, p));
  TARVO_INTENTAR(mudarNotas(link, antes->periodo, p));
  TARVO_INTENTAR(ReacumularTodo(link, marcas));
  return t.confirmar();
}

Resultado<QStringList> Periodos::debidosDe(qint64 link, const QStringList& salvo) {
  QStringList lineas;
  TARVO_TOMAR(const auto c, columna(link));
  if (!c || !db_.existeTabla(u"ExportesPendientes")) return lineas;
  const QString periodo = TextoPeriodo(c->periodo).simplified();
  TARVO_INTENTAR(dao::recorrer(
      db_.consultar(u"SELECT RUTA FROM ExportesPendientes WHERE LINK=? AND FECHA1=? AND FECHAF=? "
                    u"ORDER BY NUMERO",
                    link, c->periodo.desde, c->periodo.hasta),
      [&](const dao::Recordset& rs) {
        if (!salvo.contains(rs.texto(0)))
          lineas += textos_(kTxDebeExportarse, {periodo, NombreFichero(rs.texto(0))});
      }));
  TARVO_INTENTAR(dao::recorrer(
      db_.consultar(u"SELECT TIPO FROM PeriodosPendientes WHERE LINK=? AND FECHA1=? AND FECHAF=? "
                    u"ORDER BY VERBO, TIPO",
                    link, c->periodo.desde, c->periodo.hasta),
      [&](const dao::Recordset& rs) {
        const auto mayor = static_cast<int>(rs.entero(0));
        // Done by hand since: the next step only takes it off the list.
        if (mayor >= 0 && (mayor == 0 ? c->stkADO > 0 : c->acumulado(mayor))) return;
        lineas += mayor < 0    ? textos_(kTxDebeSumarse, {periodo})
                  : mayor == 0 ? textos_(kTxDebeDescontarse, {periodo})
                               : textos_(kTxDebeAcumularse, {periodo, NombreTipoPeriodo(mayor)});
      }));
  return lineas;
}

Resultado<QString> Periodos::gruposSinCero(const std::vector<qint64>& links) {
  constexpr qsizetype kALaVista = 8;
  std::set<int> grupos;
  if (!db_.existeTabla(u"Lecturas")) return QString();
  for (const qint64 link : links)
    TARVO_INTENTAR(dao::recorrer(
        db_.consultar(u"SELECT DISTINCT GRUPO FROM Lecturas WHERE LINK=?", link),
        [&](const dao::Recordset& rs) { grupos.insert(static_cast<int>(rs.entero(0))); }));
  QStringList numeros;
  numeros.reserve(static_cast<qsizetype>(grupos.size()));
  for (const int grupo : grupos) numeros << QString::number(grupo);
  const auto demas = numeros.size() - kALaVista;
  if (demas > 0) numeros = numeros.mid(0, kALaVista) << QStringLiteral("... +%1").arg(demas);
  return numeros.join(QStringLiteral(", "));
}

}  // namespace tarvo::totals
