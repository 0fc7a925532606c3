#include "totals/libros/Grupos.h"

#include "totals/periodos/Clases.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

std::vector<TablaDeGrupo> tablasDeGrupo() {
  std::vector<TablaDeGrupo> tablas;
  for (const QString& t :
       {u"Lecturas"_s, u"LectFilas"_s, u"BaseFilas"_s, u"CeroFilas"_s, u"Ceros"_s, u"CerosParte"_s,
        u"CerosClase"_s, u"Dudas"_s, u"Olvidos"_s, u"Bajas"_s})
    tablas.push_back({t, {}});
  for (const ClaseTotal& c : todasLasClases())
    tablas.push_back({NombreTabla(c.tipo), u"LINK=0 AND "_s});
  return tablas;
}

Resultado<> olvidarGrupo(dao::Database& db, int grupo) {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db));
  for (const TablaDeGrupo& t : tablasDeGrupo())
    TARVO_INTENTAR(db.ejecutar(dao::conMarcas(u"DELETE FROM {tabla} WHERE {donde}GRUPO=?",
                                              {{u"tabla", t.tabla}, {u"donde", t.donde}}),
                               grupo));
  TARVO_INTENTAR(db.ejecutar(u"DELETE FROM Sesiones WHERE CODGPO=?"_s, grupo));
  return tr.confirmar();
}

}  // namespace tarvo::totals
