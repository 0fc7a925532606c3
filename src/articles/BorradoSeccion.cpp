#include "articles/BorradoSeccion.h"

#include <QDir>

#include "articles/TextosArticles.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using dao::Transaccion;

namespace {

// In the order in which they can be restored: referenced tables first. A row of the history gets a
// new number. Offers and changes of its groups go with them, also those filed under the section
// that a group was in before.
std::vector<dao::Apartado::Parte> partes(const Cambios& cambios) {
  std::vector<dao::Apartado::Parte> todas{
      {u"SECCS"_s, u"NMSECC=?"_s},
      {u"DEPTS"_s, u"SECCION=?"_s},
      {u"PLUSES"_s, u"SECCION=?"_s},
      {u"GRUPOS"_s, u"SECCION=?"_s},
      {u"BZAS"_s, u"SUGPO IN (SELECT CODGPO FROM GRUPOS WHERE SECCION=?)"_s},
      {u"Sesiones"_s, u"CODGPO IN (SELECT CODGPO FROM GRUPOS WHERE SECCION=?)"_s},
      {u"MovsAlm"_s, u"SECCION=?"_s},
      {u"OFERTAS"_s,
       u"? IN (SECCION, (SELECT g.SECCION FROM GRUPOS g WHERE g.CODGPO=OFERTAS.GRUPO))"_s},
      {u"HistoriaPrecios"_s, u"SECCION=?"_s,
       u"SECCION, CODPLU, NIVEL, TARIFA, ANTES, AHORA, CUANDO, QUIEN, VENTANA"_s},
      {u"Cross"_s,
       u"? IN (Secc, (SELECT g.SECCION FROM GRUPOS g WHERE g.CODGPO=[Cross].Grupo))"_s}};
  for (const auto& sala : cambios.salas())
    for (const auto& t : sala.tablas)
      todas.push_back(
          {t.tabla, t.donde + u"GRUPO IN (SELECT CODGPO FROM GRUPOS WHERE SECCION=?)"_s});
  return todas;
}

}  // namespace

BorradoSeccion::BorradoSeccion(Catalogo& catalogo, int seccion)
    : db_(catalogo.base()),
      secciones_(catalogo),
      textos_(catalogo.textos()),
      seccion_(seccion),
      apartado_(db_, u"Seccion%1"_s.arg(seccion), partes(catalogo.cambios())) {}

Resultado<QString> BorradoSeccion::copiarTodo(const QString& carpeta, Fecha ahora) {
  const QString ruta = QDir(carpeta).filePath(u"ANTES-DE-BORRAR-SECCION-%1-%2.MDB"_s.arg(
      Ceros(seccion_, 3),
      ahora.qdate().toString(u"yyyyMMdd"_s) + ahora.qtime().toString(u"-hhmmss"_s)));
  const auto hecha = db_.copiarEn(ruta);
  if (!hecha) return fallo(hecha.error().clase, textos_(kTxSinCopiaPrevia, {hecha.error().texto}));
  return ruta;
}

Resultado<QString> BorradoSeccion::borrar(const QString& carpeta, Fecha ahora) {
  TARVO_TOMAR(const auto copia, copiarTodo(carpeta, ahora));
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  TARVO_INTENTAR(apartado_.guardar(seccion_));
  TARVO_INTENTAR(secciones_.borrar(seccion_));
  TARVO_INTENTAR(t.confirmar());
  return copia;
}

Resultado<> BorradoSeccion::reponer() {
  const auto hecho = apartado_.reponer();
  if (!hecho && hecho.error().clase == Fallo::Duplicado)
    return fallo(Fallo::Duplicado, textos_(kTxSeccionNoVuelve, {seccion_}));
  return hecho;
}

}  // namespace tarvo::articles
