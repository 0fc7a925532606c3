#include "automation/historia/Pendientes.h"

#include "automation/historia/TablasHistoria.h"
#include "core/dao/Marcas.h"
#include "core/dao/Recorrido.h"
#include "totals/periodos/Periodos.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

// A condition on a note: the rows of its period aren't in the bin, from where they may come back.
constexpr auto kSinVaciar =
    u"NOT EXISTS (SELECT 1 FROM PapeleraPer v WHERE v.LINK=c.LINK AND v.SOLOFILAS<>0)";

QString deLosNoVaciados(QStringView sentencia) {
  return dao::conMarcas(sentencia, {{u"sinVaciar", QString::fromUtf16(kSinVaciar)}});
}

}  // namespace

Resultado<> Pendientes::anotar(const OrdenPeriodos& orden, const std::vector<qint64>& links) {
  for (const qint64 link : links)
    TARVO_INTENTAR(
        db_.ejecutar(u"INSERT OR REPLACE INTO PeriodosPendientes (LINK, FECHA1, FECHAF, VERBO, "
                     u"TIPO) SELECT LINK, FECHA1, FECHAF, ?, ? FROM COLUMNA WHERE LINK=?",
                     orden.verbo, orden.tipo, link));
  return {};
}

Resultado<std::vector<qint64>> Pendientes::de(const OrdenPeriodos& orden) {
  return dao::reunir(
      db_.consultar(
          deLosNoVaciados(
              u"SELECT p.LINK FROM PeriodosPendientes p INNER JOIN COLUMNA c "
              u"ON c.LINK=p.LINK AND c.FECHA1=p.FECHA1 AND c.FECHAF=p.FECHAF WHERE VERBO=? AND "
              u"p.TIPO=? AND {sinVaciar} ORDER BY p.LINK"),
          orden.verbo, orden.tipo),
      [](const dao::Recordset& rs) { return rs.entero(0); });
}

Resultado<> Pendientes::saldar(const OrdenPeriodos& orden, qint64 link) {
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM PeriodosPendientes WHERE LINK=? AND VERBO=? AND TIPO=?",
                              link, orden.verbo, orden.tipo));
  return {};
}

Resultado<> Pendientes::anotarExporte(const Destino& d, const Exporte& e) {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db_));
  TARVO_INTENTAR(limpiar());
  // ORDEN tells debts apart; an earlier form of the table holds one debt for each.
  TARVO_TOMAR(const auto ultimo, db_.uno(u"SELECT max(NUMERO) FROM ExportesPendientes"));
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO ExportesPendientes (PROCESO, ORDEN, MARCA, LINK, FECHA1, FECHAF, RUTA, NOMBRE, "
      u"BORRAR, MOTIVO) SELECT ?, ?, ?, LINK, FECHA1, FECHAF, ?, ?, 0, ? FROM COLUMNA WHERE LINK=? "
      u"AND NOT EXISTS (SELECT 1 FROM ExportesPendientes e WHERE e.LINK=COLUMNA.LINK AND e.RUTA IN "
      u"(?, ?))",
      d.proceso, -ultimo.entero() - 1, e.marca, d.ruta, d.nombre, e.motivo, e.link, d.ruta,
      d.absoluta));
  if (e.borrar.value_or(false))
    TARVO_INTENTAR(
        db_.ejecutar(u"UPDATE ExportesPendientes SET BORRAR=1 WHERE LINK=? AND RUTA IN (?, ?)",
                     e.link, d.ruta, d.absoluta));
  return tr.confirmar();
}

Resultado<std::vector<Pendientes::Exporte>> Pendientes::exportes(const Destino& d) {
  return dao::reunir(
      db_.consultar(deLosNoVaciados(u"SELECT e.MARCA, e.RUTA, e.LINK, e.BORRAR, e.MOTIVO FROM "
                                    u"ExportesPendientes e INNER JOIN COLUMNA c ON c.LINK=e.LINK "
                                    u"AND c.FECHA1=e.FECHA1 AND "
                                    u"c.FECHAF=e.FECHAF WHERE e.RUTA<>'' AND {sinVaciar} AND "
                                    u"(e.RUTA IN (?, ?) OR e.NOMBRE=?) "
                                    u"ORDER BY e.NUMERO"),
                    d.ruta, d.absoluta, d.nombre),
      [](const dao::Recordset& rs) {
        return Exporte{rs.texto(0), rs.texto(1), rs.entero(2),
                       rs.nulo(3) ? std::nullopt : std::optional(rs.logico(3)), rs.texto(4)};
      });
}

Resultado<> Pendientes::anotarMotivo(const Exporte& e) {
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE ExportesPendientes SET MOTIVO=? WHERE LINK=? AND RUTA=?",
                              e.motivo, e.link, e.ruta));
  return {};
}

Resultado<> Pendientes::saldarExporte(const Exporte& e) {
  TARVO_INTENTAR(
      db_.ejecutar(u"DELETE FROM ExportesPendientes WHERE LINK=? AND RUTA=?", e.link, e.ruta));
  return {};
}

Resultado<> Pendientes::limpiar() {
  for (const QString& tabla :
       {u"PeriodosPendientes"_s, u"ExportesPendientes"_s, u"BorradosPendientes"_s})
    TARVO_INTENTAR(totals::olvidarNotasSinPeriodo(db_, tabla));
  return {};
}

// --- for a person -------------------------------------------------------------------------------

namespace {

// Beside the verbs of periods, in the column of the verb; they order the list.
constexpr qint64 kExportar = 0, kBorrarEntregado = 1000;

Pendientes::Debido debidoDe(const dao::Recordset& rs) {
  using Debido = Pendientes::Debido;
  Debido d;
  d.link = rs.entero(0);
  d.clase = static_cast<int>(rs.entero(1));
  d.desde = rs.fecha(2);
  d.hasta = rs.fecha(3);
  d.descripcion = rs.texto(4).trimmed();
  const qint64 verbo = rs.entero(5);
  const auto deVerbo = deNumero<VerboPeriodos>(verbo);
  d.que = verbo == kExportar                   ? Debido::Que::Exportar
          : verbo == kBorrarEntregado          ? Debido::Que::Borrar
          : deVerbo == VerboPeriodos::Acumular ? Debido::Que::Acumular
          : deVerbo == VerboPeriodos::Sumar    ? Debido::Que::Sumar
                                               : Debido::Que::Descontar;
  d.mayor = static_cast<int>(rs.entero(6));
  d.proceso = rs.texto(7);
  d.fichero = rs.texto(8);
  d.numero = rs.entero(9);
  d.luegoSeBorra = rs.logico(11);
  d.motivo = rs.texto(12);
  return d;
}

}  // namespace

Resultado<std::vector<Pendientes::Debido>> Pendientes::todos() {
  TARVO_INTENTAR(asegurarTablasHistoria(db_));
  return dao::reunir(
      db_.consultar(u"SELECT c.LINK, c.TIPO, c.FECHA1, c.FECHAF, c.DESCR, 0 AS VERBO, 0 AS "
                    u"MAYOR, e.PROCESO, e.RUTA, e.NUMERO, e.NUMERO AS VEZ, e.BORRAR, e.MOTIVO FROM "
                    u"ExportesPendientes e INNER JOIN COLUMNA c ON c.LINK=e.LINK AND "
                    u"c.FECHA1=e.FECHA1 AND c.FECHAF=e.FECHAF UNION ALL SELECT c.LINK, "
                    u"c.TIPO, c.FECHA1, c.FECHAF, c.DESCR, p.VERBO, p.TIPO, '', '', 0, "
                    u"c.LINK, 0, '' FROM PeriodosPendientes p INNER JOIN COLUMNA c ON "
                    u"c.LINK=p.LINK AND c.FECHA1=p.FECHA1 AND c.FECHAF=p.FECHAF UNION ALL SELECT "
                    u"c.LINK, c.TIPO, c.FECHA1, c.FECHAF, c.DESCR, ?, 0, '', '', 0, c.LINK, 0, '' "
                    u"FROM BorradosPendientes b INNER JOIN COLUMNA c ON c.LINK=b.LINK AND "
                    u"c.FECHA1=b.FECHA1 AND c.FECHAF=b.FECHAF ORDER BY VERBO, VEZ",
                    kBorrarEntregado),
      debidoDe);
}

Resultado<bool> Pendientes::olvidar(const Debido& d) {
  if (d.que == Debido::Que::Exportar) {
    TARVO_TOMAR(const auto filas, db_.ejecutar(u"DELETE FROM ExportesPendientes WHERE NUMERO=? "
                                               u"AND LINK=?",
                                               d.numero, d.link));
    return filas > 0;
  }
  if (d.que == Debido::Que::Borrar) {
    TARVO_TOMAR(const auto filas,
                db_.ejecutar(u"DELETE FROM BorradosPendientes WHERE LINK=?", d.link));
    return filas > 0;
  }
  const auto verbo = d.que == Debido::Que::Acumular ? VerboPeriodos::Acumular
                     : d.que == Debido::Que::Sumar  ? VerboPeriodos::Sumar
                                                    : VerboPeriodos::Stock;
  TARVO_TOMAR(const auto filas,
              db_.ejecutar(u"DELETE FROM PeriodosPendientes WHERE LINK=? AND VERBO=? AND TIPO=?",
                           d.link, verbo, d.mayor));
  return filas > 0;
}

}  // namespace tarvo::automation
