#include "Comun.h"

#include "comm/tareas/Repertorio.h"
#include "core/esquema/Esquema.h"
#include "totals/libros/TablasLibros.h"
#include "totals/periodos/TablasTotales.h"

namespace tarvo::banco {

std::unique_ptr<dao::Database> hacerTienda(const QString& ruta, int grupos, int articulos) {
  auto db = bien(dao::Database::OpenDatabase(ruta, {.crear = true}));
  bien(esquema::ponerAlDia(*db, Fecha::de(QDate(2026, 3, 1))));
  bien(totals::asegurarTablasTotales(*db));
  bien(totals::asegurarTablasLibros(*db));
  bien(tareas::asegurarTablasTareas(*db));
  const auto serie = [&](QStringView sql, int cuantos) {
    static const QString kSerie =
        QStringLiteral("with recursive n(i) as (select 1 union all select i+1 from n where i<?) ");
    bien(db->ejecutar(kSerie + sql.toString(), cuantos));
  };
  bien(db->BeginTrans());
  bien(
      db->ejecutar(u"INSERT INTO SECCS (NMSECC) SELECT 1 WHERE NOT EXISTS (SELECT 1 FROM SECCS "
                   u"WHERE NMSECC=1)"));
  bien(
      db->ejecutar(u"INSERT INTO ALMACEN (CODALM, NOMALM) SELECT 1, 'UNO' WHERE NOT EXISTS (SELECT "
                   u"1 FROM ALMACEN WHERE CODALM=1)"));
  serie(
      u"insert into GRUPOS (CODGPO, NOMGPO, SECCION, TIPO, remoto, TELEF, ALMACEN, ADDR) "
      u"select i, 'Tienda', 1, 1, 4, 'G' & i, 1, 1 from n",
      grupos);
  serie(u"insert into BZAS (SUGPO, NMBZA, ADDR, TIPO) select i, 0, 1, 1 from n", grupos);
  serie(u"insert into Sesiones (CODGPO, PZERO) select i, #3/4/2026 7:00:00# from n", grupos);
  const auto yaHay = bien(db->uno(u"SELECT count(*) FROM PLUSES WHERE SECCION=1"));
  serie(
      u"insert into PLUSES (SECCION, CODPLU, NOMPLU, CADA) select 1, 100+i, 'Artículo ' & i, 0 "
      u"from n",
      articulos - static_cast<int>(yaHay.entero()));
  bien(db->CommitTrans());
  return db;
}

}  // namespace tarvo::banco
