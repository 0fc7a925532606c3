#include "totals/periodos/Sumas.h"

#include <algorithm>
#include <iterator>

#include "core/dao/Marcas.h"
#include "core/dao/Recorrido.h"
#include "totals/TextosTotals.h"
#include "totals/periodos/FilasTotales.h"

namespace tarvo::totals {

namespace {

Periodo periodoDe(const dao::Recordset& f) {
  return {static_cast<int>(f.entero(0)), f.fecha(1), f.fecha(2)};
}

}  // namespace

Resultado<> Sumas::guardar(qint64 origen, qint64 lote) {
  for (const ClaseTotal& c : enVigor(a_))
    TARVO_INTENTAR(db_.ejecutar(
        dao::conMarcas(
            u"INSERT INTO PapeleraSuma (LOTE, CLASE, GRUPO, CODI, HORA, CON, PES, [IMP], SCO) "
            u"SELECT ?, ?, GRUPO, CODI, {hora}, CON, PES, [IMP], SCO FROM {tabla} WHERE LINK=?",
            {{u"hora", horaDe(c)}, {u"tabla", NombreTabla(c.tipo)}}),
        lote, numeroDe(c.tipo), origen));
  return {};
}

Resultado<> Sumas::sumar(qint64 destino, const std::vector<Columna>& cuales,
                         const std::vector<Periodo>& dobles, qint64 lote) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(const auto marcas, p_.DesacumularTodo(destino));
  for (const Columna& c : cuales) {
    if (c.LINK == destino) continue;
    if (lote > 0) TARVO_INTENTAR(guardar(c.LINK, lote));
    TARVO_INTENTAR(p_.SumarPeriodo(destino, c.LINK));
    TARVO_INTENTAR(db_.ejecutar(
        u"INSERT INTO Sumados (LINK, LOTE, TIPO, FECHA1, FECHAF, SOLAPA) VALUES (?, ?, ?, ?, ?, ?)",
        destino, lote, c.periodo.tipo, c.periodo.desde, c.periodo.hasta,
        std::ranges::count(dobles, c.periodo) > 0));
    if (db_.existeTabla(u"PeriodosPendientes"))
      TARVO_INTENTAR(
          db_.ejecutar(u"DELETE FROM PeriodosPendientes WHERE LINK=? AND TIPO=-1", c.LINK));
  }
  TARVO_INTENTAR(p_.ReacumularTodo(destino, marcas));
  return t.confirmar();
}

// Subtracts the rows of the sum; a row left all zero is deleted, as it holds no information.
Resultado<> Sumas::quitarFilas(qint64 destino, qint64 lote) {
  for (const ClaseTotal& c : enVigor(a_)) {
    const QString filas = dao::conMarcas(
        u"SELECT {claves}, sum(CON) AS CON, sum(PES) AS PES, sum([IMP]) AS [IMP], sum(SCO) AS SCO "
        u"FROM PapeleraSuma WHERE LOTE=? AND CLASE={clase} GROUP BY {claves}",
        {{u"claves", clavesDe(c)}, {u"clase", QString::number(numeroDe(c.tipo))}});
    TARVO_INTENTAR(sumarFilas(db_, c, destino, filas, lote, -1, p_.textos()));
    TARVO_INTENTAR(db_.ejecutar(
        dao::conMarcas(
            u"DELETE FROM {tabla} WHERE LINK=? AND CON=0 AND PES=0 AND [IMP]=0 AND SCO=0 AND "
            u"EXISTS (SELECT 1 FROM PapeleraSuma s WHERE s.LOTE=? AND s.CLASE=? AND "
            u"s.GRUPO={tabla}.GRUPO AND s.CODI={tabla}.CODI AND s.HORA={hora})",
            {{u"tabla", NombreTabla(c.tipo)}, {u"hora", horaDe(c, NombreTabla(c.tipo))}}),
        destino, lote, numeroDe(c.tipo)));
  }
  return {};
}

Resultado<bool> Sumas::vacio(qint64 link) {
  for (const ClaseTotal& c : enVigor(a_)) {
    TARVO_TOMAR(const auto n, db_.uno(dao::conMarcas(u"SELECT count(*) FROM {tabla} WHERE LINK=?",
                                                     {{u"tabla", NombreTabla(c.tipo)}}),
                                      link));
    if (n.entero() > 0) return false;
  }
  return true;
}

Resultado<> Sumas::deshacer(qint64 destino, qint64 lote, bool nuevo) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(const auto hay,
              db_.uno(u"SELECT count(*) FROM Sumados WHERE LINK=? AND LOTE=?", destino, lote));
  if (hay.entero() == 0) return fallo(Fallo::NoExiste, p_.textos()(kTxSumaYaNoEsta));
  TARVO_TOMAR(const auto marcas, p_.DesacumularTodo(destino));
  TARVO_INTENTAR(quitarFilas(destino, lote));
  TARVO_INTENTAR(p_.ReacumularTodo(destino, marcas));
  for (const QString& tabla : {QStringLiteral("Sumados"), QStringLiteral("PapeleraSuma")})
    TARVO_INTENTAR(db_.ejecutar(
        dao::conMarcas(u"DELETE FROM {tabla} WHERE LOTE=?", {{u"tabla", tabla}}), lote));
  TARVO_TOMAR(const auto sobra, vacio(destino));
  if (nuevo && sobra) TARVO_INTENTAR(p_.BorrarPeriodo(destino));
  return t.confirmar();
}

Resultado<bool> Sumas::tiene(qint64 destino, const Periodo& p) {
  TARVO_TOMAR(const auto n, db_.uno(u"SELECT count(*) FROM Sumados WHERE LINK=? AND TIPO=? AND "
                                    u"FECHA1=? AND FECHAF=?",
                                    destino, p.tipo, p.desde, p.hasta));
  return n.entero() > 0;
}

Resultado<std::vector<Periodo>> Sumas::directos(const Columna& c) {
  TARVO_TOMAR(
      auto v,
      dao::reunir(db_.consultar(u"SELECT TIPO, FECHA1, FECHAF FROM Sumados WHERE LINK=?", c.LINK),
                  periodoDe));
  const int tipo = c.periodo.tipo;
  if (tipo >= kSemanal && tipo <= kAnual)
    for (const QString& tabla : {QStringLiteral("COLUMNA"), QStringLiteral("Sustituidos")}) {
      TARVO_TOMAR(const auto dentro,
                  dao::reunir(db_.consultar(
                                  dao::conMarcas(u"SELECT TIPO, FECHA1, FECHAF FROM {tabla} WHERE "
                                                 u"{marca}<>0 AND FECHA1>=? AND FECHA1<=?",
                                                 {{u"tabla", tabla}, {u"marca", marcaDe(tipo)}}),
                                  c.periodo.desde, c.periodo.hasta),
                              periodoDe));
      std::ranges::copy_if(dentro, std::back_inserter(v), [&](const Periodo& p) {
        return Periodos::mayorDe(tipo, p) == c.periodo;
      });
    }
  std::ranges::stable_sort(v, {}, &Periodo::desde);
  return v;
}

Resultado<std::vector<Periodo>> Sumas::contenido(const Columna& c) {
  std::vector<Periodo> todos;
  std::vector<Columna> porMirar{c};
  while (!porMirar.empty()) {
    const Columna una = std::move(porMirar.back());
    porMirar.pop_back();
    TARVO_TOMAR(const auto suyos, directos(una));
    for (const Periodo& p : suyos) {
      if (p == c.periodo || std::ranges::find(todos, p) != todos.end()) continue;
      todos.push_back(p);
      TARVO_TOMAR(const auto hay, p_.BuscarPeriodo(p.tipo, p.desde, p.hasta));
      if (hay) porMirar.push_back(*hay);
    }
  }
  return todos;
}

Resultado<std::vector<Columna>> Sumas::quienesLoTienen(const Columna& c) {
  std::vector<Columna> todos, porMirar{c};
  while (!porMirar.empty()) {
    const Periodo p = porMirar.back().periodo;
    porMirar.pop_back();
    TARVO_TOMAR(
        const auto links,
        dao::reunir(db_.consultar(
                        u"SELECT DISTINCT LINK FROM Sumados WHERE TIPO=? AND FECHA1=? AND FECHAF=?",
                        p.tipo, p.desde, p.hasta),
                    [](const dao::Recordset& fila) { return fila.entero(0); }));
    for (const qint64 link : links) {
      TARVO_TOMAR(const auto suma, p_.columna(link));
      if (!suma || link == c.LINK || std::ranges::count(todos, link, &Columna::LINK) > 0) continue;
      todos.push_back(*suma);
      porMirar.push_back(*suma);
    }
  }
  return todos;
}

Resultado<std::vector<Periodo>> Sumas::repetidos(qint64 destino) {
  return dao::reunir(db_.consultar(u"SELECT TIPO, FECHA1, FECHAF FROM Sumados WHERE LINK=? AND "
                                   u"SOLAPA<>0 ORDER BY FECHA1, FECHAF",
                                   destino),
                     periodoDe);
}

}  // namespace tarvo::totals
