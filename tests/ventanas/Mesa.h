// What the tests of windows stand on: a database in a temporary folder, the program's texts with
// some of the test's own, and the kit's objects on the real clock.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "core/ventanas/marco/Escritorio.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

// The value of a result that must be well.
template <class T>
T bien(Resultado<T> r) {
  EXPECT_TRUE(r.has_value()) << (r ? "" : r.error().texto.toStdString());
  if constexpr (!std::is_void_v<T>) return r ? std::move(*r) : T{};
}

struct Mesa {
  // `propios`: lines "number TAB text" on top of the program's table.
  explicit Mesa(const QString& propios = {}) : textos(leerTextos(propios)) {}

  QString ruta(const QString& nombre) const { return carpeta.filePath(nombre); }
  template <class... P>
  void sql(const QString& texto, const P&... p) {
    bien(db->ejecutar(texto, p...));
  }
  ventanas::Contexto& contexto() { return escritorio.contexto(); }

  QTemporaryDir carpeta;
  Ajustes ajustes{carpeta.path(), Idioma::Espanol};
  std::unique_ptr<dao::Database> db =
      bien(dao::Database::OpenDatabase(ruta(u"TARVO.MDB"_s), {.crear = true}));
  Textos textos;
  RelojReal reloj;
  ventanas::Escritorio escritorio{
      *qApp, *db, ajustes, textos, reloj, ventanas::Cara::Clara, ruta(u"VENTANAS.INI"_s)};

 private:
  Textos leerTextos(const QString& propios) {
    QFile tabla(QStringLiteral(TARVO_DATOS "/textos/es.txt"));
    EXPECT_TRUE(tabla.open(QIODevice::ReadOnly));
    QFile junta(ruta(u"textos.txt"_s));
    EXPECT_TRUE(junta.open(QIODevice::WriteOnly));
    junta.write(tabla.readAll() + propios.toUtf8());
    junta.close();
    return bien(Textos::leer(junta.fileName()));
  }
};

// Runs the event loop until it holds; false when it never does. Builds that watch themselves, on a
// busy machine, take their time.
template <class F>
bool esperar(F condicion, int ms = 60'000) {
  return QTest::qWaitFor(condicion, ms);
}

}  // namespace tarvo::prueba
