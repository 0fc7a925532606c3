#include "automation/Pendientes.h"

namespace tarvo::automation {

namespace {

// A number may be given again: the dates tell whether it is the same period.
constexpr auto kGuionPendientes =
    uR"(
CREATE TABLE IF NOT EXISTS PeriodosPendientes (
  LINK INTEGER NOT NULL, FECHA1 REAL, FECHAF REAL, VERBO INTEGER NOT NULL, TIPO INTEGER NOT NULL,
  PRIMARY KEY (LINK, VERBO, TIPO));
)";

}  // namespace

Resultado<> asegurarTablaPendientes(dao::Database& db) {
  return db.ejecutarGuion(kGuionPendientes);
}

Resultado<> Pendientes::anotar(const OrdenPeriodos& orden, const std::vector<qint64>& links) {
  for (const qint64 link : links)
    TARVO_INTENTAR(
        db_.ejecutar(u"INSERT OR REPLACE INTO PeriodosPendientes (LINK, FECHA1, FECHAF, VERBO, "
                     u"TIPO) SELECT LINK, FECHA1, FECHAF, ?, ? FROM COLUMNA WHERE LINK=?",
                     orden.verbo, orden.tipo, link));
  return {};
}

Resultado<std::vector<qint64>> Pendientes::de(const OrdenPeriodos& orden) {
  const auto rs = db_.consultar(
      u"SELECT p.LINK FROM PeriodosPendientes p INNER JOIN COLUMNA c ON "
      u"c.LINK=p.LINK AND c.FECHA1=p.FECHA1 AND c.FECHAF=p.FECHAF WHERE VERBO=? AND "
      u"p.TIPO=? ORDER BY p.LINK",
      orden.verbo, orden.tipo);
  if (!rs) return std::unexpected(rs.error());
  std::vector<qint64> links;
  for (; !(*rs)->Eof(); static_cast<void>((*rs)->MoveNext())) links.push_back((*rs)->entero(0));
  return links;
}

Resultado<> Pendientes::saldar(const OrdenPeriodos& orden, qint64 link) {
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM PeriodosPendientes WHERE LINK=? AND VERBO=? AND TIPO=?",
                              link, orden.verbo, orden.tipo));
  return {};
}

}  // namespace tarvo::automation
