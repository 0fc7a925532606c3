#include "automation/historia/Pendientes.h"

namespace tarvo::automation {

Resultado<> Pendientes::anotar(const OrdenPeriodos& orden, const std::vector<qint64>& links) {
  for (const qint64 link : links)
    TARVO_INTENTAR(
        db_.ejecutar(u"INSERT OR REPLACE INTO PeriodosPendientes (LINK, FECHA1, FECHAF, VERBO, "
                     u"TIPO) SELECT LINK, FECHA1, FECHAF, ?, ? FROM COLUMNA WHERE LINK=?",
                     orden.verbo, orden.tipo, link));
  return {};
}

Resultado<std::vector<qint64>> Pendientes::de(const OrdenPeriodos& orden) {
  TARVO_TOMAR(
      const auto rs,
      db_.consultar(u"SELECT p.LINK FROM PeriodosPendientes p INNER JOIN COLUMNA c ON "
                    u"c.LINK=p.LINK AND c.FECHA1=p.FECHA1 AND c.FECHAF=p.FECHAF WHERE VERBO=? AND "
                    u"p.TIPO=? ORDER BY p.LINK",
                    orden.verbo, orden.tipo));
  std::vector<qint64> links;
  while (!rs->Eof()) {
    links.push_back(rs->entero(0));
    TARVO_INTENTAR(rs->MoveNext());
  }
  return links;
}

Resultado<> Pendientes::saldar(const OrdenPeriodos& orden, qint64 link) {
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM PeriodosPendientes WHERE LINK=? AND VERBO=? AND TIPO=?",
                              link, orden.verbo, orden.tipo));
  return {};
}

Resultado<> Pendientes::anotarExporte(const Destino& destino, const Exporte& exporte) {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db_));
  TARVO_INTENTAR(limpiar());
  for (const qint64 link : exporte.links)
    TARVO_INTENTAR(
        db_.ejecutar(u"INSERT INTO ExportesPendientes (PROCESO, ORDEN, MARCA, LINK, FECHA1, "
                     u"FECHAF, RUTA) SELECT ?, ?, ?, LINK, FECHA1, FECHAF, ? FROM COLUMNA WHERE "
                     u"LINK=? AND NOT EXISTS (SELECT 1 FROM ExportesPendientes e WHERE "
                     u"e.LINK=COLUMNA.LINK AND ((e.PROCESO=? AND e.ORDEN=?) OR e.RUTA=?))",
                     destino.proceso, destino.orden, exporte.marca, destino.ruta, link,
                     destino.proceso, destino.orden, destino.ruta));
  return tr.confirmar();
}

Resultado<std::vector<Pendientes::Exporte>> Pendientes::exportes(const Destino& destino) {
  TARVO_TOMAR(const auto rs, db_.consultar(u"SELECT e.MARCA, e.LINK FROM ExportesPendientes e "
                                           u"INNER JOIN COLUMNA c ON c.LINK=e.LINK AND "
                                           u"c.FECHA1=e.FECHA1 AND c.FECHAF=e.FECHAF WHERE "
                                           u"e.PROCESO=? AND e.ORDEN=? ORDER BY e.NUMERO",
                                           destino.proceso, destino.orden));
  std::vector<Exporte> todos;
  for (; !rs->Eof();) {
    const QString marca = rs->texto(0);
    if (todos.empty() || todos.back().marca != marca) todos.push_back({marca, {}});
    todos.back().links.push_back(rs->entero(1));
    TARVO_INTENTAR(rs->MoveNext());
  }
  return todos;
}

Resultado<> Pendientes::saldarExporte(const Destino& destino, qint64 link) {
  TARVO_INTENTAR(db_.ejecutar(
      u"DELETE FROM ExportesPendientes WHERE LINK=? AND ((PROCESO=? AND ORDEN=?) OR RUTA=?)", link,
      destino.proceso, destino.orden, destino.ruta));
  return {};
}

Resultado<> Pendientes::limpiar() {
  for (const char16_t* tabla : {u"PeriodosPendientes", u"ExportesPendientes"})
    TARVO_INTENTAR(db_.ejecutar(
        QStringLiteral("DELETE FROM %1 WHERE NOT EXISTS (SELECT 1 FROM COLUMNA c WHERE "
                       "c.LINK=%1.LINK AND c.FECHA1=%1.FECHA1 AND c.FECHAF=%1.FECHAF)")
            .arg(tabla)));
  return {};
}

// --- for a person -------------------------------------------------------------------------------

Resultado<std::vector<Pendientes::Debido>> Pendientes::todos() {
  TARVO_TOMAR(const auto rs,
              db_.consultar(u"SELECT c.LINK, c.TIPO, c.FECHA1, c.FECHAF, c.DESCR, 0 AS VERBO, 0 AS "
                            u"MAYOR, e.PROCESO, e.RUTA, e.ORDEN, e.NUMERO AS VEZ FROM "
                            u"ExportesPendientes e INNER JOIN COLUMNA c ON c.LINK=e.LINK AND "
                            u"c.FECHA1=e.FECHA1 AND c.FECHAF=e.FECHAF UNION ALL SELECT c.LINK, "
                            u"c.TIPO, c.FECHA1, c.FECHAF, c.DESCR, p.VERBO, p.TIPO, '', '', 0, "
                            u"c.LINK FROM PeriodosPendientes p INNER JOIN COLUMNA c ON "
                            u"c.LINK=p.LINK AND c.FECHA1=p.FECHA1 AND c.FECHAF=p.FECHAF ORDER BY "
                            u"VERBO, VEZ"));
  std::vector<Debido> lista;
  while (!rs->Eof()) {
    Debido d;
    d.link = rs->entero(0);
    d.clase = static_cast<int>(rs->entero(1));
    d.desde = rs->fecha(2);
    d.hasta = rs->fecha(3);
    d.descripcion = rs->texto(4).trimmed();
    const auto verbo = deNumero<VerboPeriodos>(rs->entero(5));
    d.que = !verbo                              ? Debido::Que::Exportar
            : *verbo == VerboPeriodos::Acumular ? Debido::Que::Acumular
                                                : Debido::Que::Descontar;
    d.mayor = static_cast<int>(rs->entero(6));
    d.proceso = rs->texto(7);
    d.fichero = rs->texto(8);
    d.orden = static_cast<int>(rs->entero(9));
    lista.push_back(std::move(d));
    TARVO_INTENTAR(rs->MoveNext());
  }
  return lista;
}

Resultado<bool> Pendientes::olvidar(const Debido& d) {
  if (d.que == Debido::Que::Exportar) {
    TARVO_TOMAR(
        const auto filas,
        db_.ejecutar(u"DELETE FROM ExportesPendientes WHERE LINK=? AND PROCESO=? AND ORDEN=?",
                     d.link, d.proceso, d.orden));
    return filas > 0;
  }
  TARVO_TOMAR(
      const auto filas,
      db_.ejecutar(u"DELETE FROM PeriodosPendientes WHERE LINK=? AND VERBO=? AND TIPO=?", d.link,
                   d.que == Debido::Que::Acumular ? VerboPeriodos::Acumular : VerboPeriodos::Stock,
                   d.mayor));
  return filas > 0;
}

}  // namespace tarvo::automation
