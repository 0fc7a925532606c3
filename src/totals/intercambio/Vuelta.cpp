#include "totals/intercambio/Vuelta.h"

#include "core/dao/Marcas.h"
#include "core/dao/Recorrido.h"

namespace tarvo::totals {

Resultado<Secciones> leerSecciones(dao::Database& db) {
  Secciones s;
  TARVO_INTENTAR(dao::recorrer(db.consultar(u"SELECT CODGPO, SECCION FROM GRUPOS"),
                               [&](const dao::Recordset& rs) { s[rs.entero(0)] = rs.entero(1); }));
  return s;
}

Resultado<std::set<qint64>> ilegiblesEnCorto(dao::Database& db, const Ajustes& ajustes,
                                             qint64 link) {
  TARVO_TOMAR(const auto secciones, leerSecciones(db));
  std::set<qint64> grupos;
  for (const TipoTotal tipo : {TipoTotal::Operadores, TipoTotal::Departamentos})
    TARVO_INTENTAR(dao::recorrer(
        db.consultar(dao::conMarcas(u"SELECT DISTINCT GRUPO, CODI FROM {tabla} WHERE LINK=?",
                                    {{u"tabla", NombreTabla(tipo)}}),
                     link),
        [&](const dao::Recordset& rs) {
          FilaExport f{.clase = tipo, .GRUPO = rs.entero(0), .CODI = rs.entero(1), .c = {}};
          if (const auto s = secciones.find(f.GRUPO); s != secciones.end()) f.SECCION = s->second;
          const auto linea = lineaExport(f, true);
          if (!linea) return;  // the export will say so
          const auto vuelta = leerLineaExport(*linea, ajustes, secciones);
          if (!vuelta || vuelta->GRUPO != f.GRUPO || vuelta->CODI != f.CODI) grupos.insert(f.GRUPO);
        }));
  return grupos;
}

}  // namespace tarvo::totals
