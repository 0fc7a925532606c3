#include "articles/BorradoSeccion.h"

#include <QDir>

#include "articles/TextosArticles.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using dao::conMarcas;
using dao::Transaccion;

namespace {

struct Parte {
  const char16_t* tabla;
  const char16_t* donde;     // with one parameter, the section's number
  const char16_t* columnas;  // to restore
};
// In the order in which they can be restored: referenced tables first. A row of the history gets a
// new number. Offers and changes of its groups go with them, also those filed under the section
// that a group was in before.
constexpr std::array<Parte, 10> kPartes{
    {{u"SECCS", u"NMSECC=?", u"*"},
     {u"DEPTS", u"SECCION=?", u"*"},
     {u"PLUSES", u"SECCION=?", u"*"},
     {u"GRUPOS", u"SECCION=?", u"*"},
     {u"BZAS", u"SUGPO IN (SELECT CODGPO FROM GRUPOS WHERE SECCION=?)", u"*"},
     {u"Sesiones", u"CODGPO IN (SELECT CODGPO FROM GRUPOS WHERE SECCION=?)", u"*"},
     {u"MovsAlm", u"SECCION=?", u"*"},
     {u"OFERTAS", u"? IN (SECCION, (SELECT g.SECCION FROM GRUPOS g WHERE g.CODGPO=OFERTAS.GRUPO))",
      u"*"},
     {u"HistoriaPrecios", u"SECCION=?",
      u"SECCION, CODPLU, NIVEL, TARIFA, ANTES, AHORA, CUANDO, QUIEN, VENTANA"},
     {u"Cross", u"? IN (Secc, (SELECT g.SECCION FROM GRUPOS g WHERE g.CODGPO=[Cross].Grupo))",
      u"*"}}};

QString guardada(QStringView tabla, int seccion) {
  return u"Ida%1_%2"_s.arg(seccion).arg(tabla);
}
QString guardada(const Parte& p, int seccion) {
  return guardada(QStringView(p.tabla), seccion);
}

Resultado<> soltarTabla(dao::Database& db, const QString& tabla) {
  TARVO_INTENTAR(db.ejecutar(conMarcas(u"DROP TABLE IF EXISTS {tabla}", {{u"tabla", tabla}})));
  return {};
}

// All tables of other rooms, one after the other.
template <class Hacer>
Resultado<> conAjenas(const Cambios& cambios, const Hacer& hacer) {
  for (const auto& sala : cambios.salas())
    for (const auto& tabla : sala.tablas) TARVO_INTENTAR(hacer(tabla));
  return {};
}

}  // namespace

BorradoSeccion::~BorradoSeccion() {
  static_cast<void>(soltar());  // temporary tables: they go with the program anyway
}

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
  TARVO_INTENTAR(soltar());
  TARVO_INTENTAR(guardar());
  TARVO_INTENTAR(secciones_.borrar(seccion_));
  TARVO_INTENTAR(t.confirmar());
  return copia;
}

Resultado<> BorradoSeccion::guardar() {
  for (const Parte& p : kPartes)
    TARVO_INTENTAR(db_.ejecutar(
        conMarcas(u"CREATE TEMP TABLE {guardada} AS SELECT {columnas} FROM [{tabla}] WHERE {donde}",
                  {{u"guardada", guardada(p, seccion_)},
                   {u"columnas", QString::fromUtf16(p.columnas)},
                   {u"tabla", QString::fromUtf16(p.tabla)},
                   {u"donde", QString::fromUtf16(p.donde)}}),
        seccion_));
  return conAjenas(secciones_.cambios(), [&](const Cambios::TablaAjena& a) -> Resultado<> {
    TARVO_INTENTAR(db_.ejecutar(
        conMarcas(
            u"CREATE TEMP TABLE {guardada} AS SELECT * FROM [{tabla}] WHERE {donde}GRUPO IN "
            u"(SELECT CODGPO FROM GRUPOS WHERE SECCION=?)",
            {{u"guardada", guardada(a.tabla, seccion_)}, {u"tabla", a.tabla}, {u"donde", a.donde}}),
        seccion_));
    return {};
  });
}

Resultado<> BorradoSeccion::soltar() {
  for (const Parte& p : kPartes) TARVO_INTENTAR(soltarTabla(db_, guardada(p, seccion_)));
  return conAjenas(secciones_.cambios(), [&](const Cambios::TablaAjena& a) -> Resultado<> {
    return soltarTabla(db_, guardada(a.tabla, seccion_));
  });
}

Resultado<> BorradoSeccion::reponer() {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  for (const Parte& p : kPartes) {
    const QString columnas =
        QStringView(p.columnas) == u"*" ? QString() : u" (%1)"_s.arg(QStringView(p.columnas));
    const auto hecho =
        db_.ejecutar(conMarcas(u"INSERT INTO [{tabla}]{columnas} SELECT * FROM {guardada}",
                               {{u"tabla", QString::fromUtf16(p.tabla)},
                                {u"columnas", columnas},
                                {u"guardada", guardada(p, seccion_)}}));
    if (!hecho && hecho.error().clase == Fallo::Duplicado)
      return fallo(Fallo::Duplicado, textos_(kTxSeccionNoVuelve, {seccion_}));
    if (!hecho) return std::unexpected(hecho.error());
  }
  const auto reponer = [&](const Cambios::TablaAjena& a) -> Resultado<> {
    TARVO_INTENTAR(
        db_.ejecutar(conMarcas(u"INSERT INTO [{tabla}] SELECT * FROM {guardada}",
                               {{u"tabla", a.tabla}, {u"guardada", guardada(a.tabla, seccion_)}})));
    return {};
  };
  TARVO_INTENTAR(conAjenas(secciones_.cambios(), reponer));
  return t.confirmar();
}

}  // namespace tarvo::articles
