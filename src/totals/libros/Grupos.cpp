#include "totals/libros/Grupos.h"

#include "totals/periodos/Clases.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

Resultado<> olvidarGrupo(dao::Database& db, int grupo) {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db));
  for (const QString& tabla : {u"Lecturas"_s, u"LectFilas"_s, u"BaseFilas"_s, u"Ceros"_s,
                               u"CerosParte"_s, u"CerosClase"_s, u"Dudas"_s})
    TARVO_INTENTAR(db.ejecutar(QString(u"DELETE FROM "_s + tabla + u" WHERE GRUPO=?"_s), grupo));
  for (const ClaseTotal& c : todasLasClases())
    TARVO_INTENTAR(db.ejecutar(
        QString(u"DELETE FROM "_s + QString::fromUtf16(c.tabla) + u" WHERE LINK=0 AND GRUPO=?"_s),
        grupo));
  TARVO_INTENTAR(db.ejecutar(u"DELETE FROM Sesiones WHERE CODGPO=?"_s, grupo));
  return tr.confirmar();
}

}  // namespace tarvo::totals
