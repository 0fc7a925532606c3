#include "comm/envios/Decision.h"

#include <algorithm>
#include <unordered_set>

#include "core/dao/Recorrido.h"

namespace tarvo::envios {

namespace {

Resultado<std::vector<qint64>> codigosDe(dao::Abierta filas) {
  return dao::reunir(std::move(filas), [](const dao::Recordset& rs) { return rs.entero(0); });
}

}  // namespace

Resultado<std::vector<qint64>> todosLosArticulos(dao::Database& db, const Destino& d, Rango r) {
  return codigosDe(
      db.consultar(u"SELECT CODPLU FROM PLUSES WHERE SECCION=? AND (CODPLU>=?) AND (CODPLU<=?) AND "
                   u"(CODPLU>2) ORDER BY CODPLU",
                   d.seccion, r.desde, r.tope()));
}

// An offer that is no longer, or not yet, in force is due while the group has its prices: its dates
// may have changed after they were sent.
Resultado<std::vector<qint64>> SaltarSinCambios(dao::Database& db, const Destino& d, Rango r,
                                                Fecha ahora) {
  return codigosDe(db.consultar(
      u"SELECT CODPLU FROM PLUSES LEFT JOIN [Cross] ON [Cross].Secc=PLUSES.SECCION AND "
      u"[Cross].plu=PLUSES.CODPLU AND [Cross].Grupo=? LEFT JOIN OFERTAS ON OFERTAS.GRUPO=? AND "
      u"OFERTAS.SECCION=PLUSES.SECCION AND OFERTAS.CODIGO=PLUSES.CODPLU WHERE PLUSES.SECCION=? AND "
      u"(CODPLU>=?) AND (CODPLU<=?) AND (CODPLU>2) AND ([Cross].plu IS NULL OR nz(borra,0)<>0 OR "
      u"(OFERTAS.CODIGO IS NOT NULL AND (nz(borrado,0)<>0 OR (nz(enviado,0)<>0) <> ((FECHA_INI IS "
      u"NULL OR "
      u"?>=int(FECHA_INI)) AND (FECHA_FIN IS NULL OR ?<int(FECHA_FIN)+1))))) ORDER BY CODPLU",
      d.grupo, d.grupo, d.seccion, r.desde, r.tope(), ahora, ahora));
}

// Marked for deletion, or gone in any other way after the group had received it.
Resultado<std::vector<qint64>> articulosPorBorrar(dao::Database& db, const Destino& d) {
  return codigosDe(db.consultar(
      u"SELECT plu FROM [Cross] WHERE Grupo=? AND borra<>0 AND plu>2 AND plu<=9999999 AND NOT "
      u"EXISTS "
      u"(SELECT 1 FROM PLUSES WHERE SECCION=? AND CODPLU=plu) UNION SELECT CODPLU FROM Enviados E "
      u"WHERE E.GRUPO=? AND E.CODPLU>2 AND NOT EXISTS (SELECT 1 FROM PLUSES P WHERE P.SECCION=? "
      u"AND "
      u"P.CODPLU=E.CODPLU) ORDER BY 1",
      d.grupo, d.seccion, d.grupo, d.seccion));
}

Resultado<std::vector<qint64>> borradosAntes(dao::Database& db, const Destino& d, Rango r) {
  if (d.tipo != TipoGrupo::Balanzas) return std::vector<qint64>{};
  return codigosDe(db.consultar(
      u"SELECT B.CODPLU FROM BorradosGrupo B WHERE B.GRUPO=? AND B.CODPLU>=? AND B.CODPLU<=? AND "
      u"NOT EXISTS (SELECT 1 FROM PLUSES P WHERE P.SECCION=? AND P.CODPLU=B.CODPLU) ORDER BY 1",
      d.grupo, r.desde, r.tope(), d.seccion));
}

Resultado<qint64> articulosDeSobra(dao::Database& db, const Destino& d) {
  TARVO_TOMAR(
      const auto n,
      db.uno(
          u"SELECT count(DISTINCT CODPLU) FROM Enviados E WHERE E.GRUPO=? AND NOT EXISTS (SELECT 1 "
          u"FROM PLUSES P WHERE P.SECCION=? AND P.CODPLU=E.CODPLU)",
          d.grupo, d.seccion));
  return n.entero();
}

Resultado<> rechazadosAlFinal(dao::Database& db, const Destino& d, std::vector<qint64>& codigos) {
  TARVO_TOMAR(const auto rechazados,
              codigosDe(db.consultar(
                  u"SELECT CODPLU FROM Retenidos WHERE GRUPO=? AND SECCION=? AND ERROR<>0", d.grupo,
                  d.seccion)));
  if (rechazados.empty()) return {};
  const std::unordered_set<qint64> cuales(rechazados.begin(), rechazados.end());
  std::ranges::stable_partition(codigos, [&](qint64 c) { return !cuales.contains(c); });
  return {};
}

}  // namespace tarvo::envios
