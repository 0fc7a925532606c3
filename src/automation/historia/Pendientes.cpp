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

Resultado<> Pendientes::anotarExporte(const QString& proceso, int orden, const Exporte& exporte) {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db_));
  TARVO_INTENTAR(saldarExporte(exporte.marca));
  for (const qint64 link : exporte.links)
    TARVO_INTENTAR(
        db_.ejecutar(u"INSERT INTO ExportesPendientes (PROCESO, ORDEN, MARCA, LINK, FECHA1, "
                     u"FECHAF) SELECT ?, ?, ?, LINK, FECHA1, FECHAF FROM COLUMNA WHERE LINK=?",
                     proceso, orden, exporte.marca, link));
  return tr.confirmar();
}

Resultado<std::vector<Pendientes::Exporte>> Pendientes::exportes(const QString& proceso,
                                                                 int orden) {
  TARVO_TOMAR(const auto rs, db_.consultar(u"SELECT e.MARCA, e.LINK FROM ExportesPendientes e "
                                           u"INNER JOIN COLUMNA c ON c.LINK=e.LINK AND "
                                           u"c.FECHA1=e.FECHA1 AND c.FECHAF=e.FECHAF WHERE "
                                           u"e.PROCESO=? AND e.ORDEN=? ORDER BY e.NUMERO",
                                           proceso, orden));
  std::vector<Exporte> todos;
  for (; !rs->Eof();) {
    const QString marca = rs->texto(0);
    if (todos.empty() || todos.back().marca != marca) todos.push_back({marca, {}});
    todos.back().links.push_back(rs->entero(1));
    TARVO_INTENTAR(rs->MoveNext());
  }
  return todos;
}

Resultado<> Pendientes::saldarExporte(const QString& marca) {
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM ExportesPendientes WHERE MARCA=?", marca));
  return {};
}

}  // namespace tarvo::automation
