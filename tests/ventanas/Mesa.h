// The fixture of all window tests: a database in a temporary folder, the program's texts with some
// of the test's own, and the kit's objects on the real clock.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QTimer>

#include "core/ventanas/marco/Escritorio.h"
#include "core/ventanas/parrilla/Parrilla.h"
#include "tienda/Tienda.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

// Runs the event loop until the condition holds; false after `ms`, which leaves time for sanitizer
// builds on a busy machine. The condition is checked after each round of events, so that work in
// slices is caught after a slice, however fast the machine is.
template <class F>
bool esperar(F condicion, int ms = 60'000) {
  const QDeadlineTimer hasta(ms);
  while (!condicion()) {
    if (hasta.hasExpired()) return false;
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QThread::usleep(200);
  }
  return true;
}

// A window with nothing in it, for any door.
class Lisa : public ventanas::Ventana {
 public:
  using Ventana::Ventana;
  template <class P>
  Resultado<> entrar(const P&) {
    return {};
  }
};

struct Mesa : Tienda {
  // `propios`: lines "number TAB text" added to the program's table. `salas`: the rooms whose
  // settings are loaded.
  explicit Mesa(const QString& propios = {}, const std::vector<SalaDeAjustes>& salas = {})
      : ajustes(carpeta.path(), Idioma::Espanol, salas), textos(leerTextos(propios)) {}

  QString ruta(const QString& nombre) const { return carpeta.filePath(nombre); }
  ventanas::Contexto& contexto() { return escritorio.contexto(); }

  template <class V = ventanas::Ventana>
  V* abrir(const QString& nombre) {
    auto* v = dynamic_cast<V*>(escritorio.ventanas().abrir(nombre));
    EXPECT_NE(v, nullptr) << nombre.toStdString();
    EXPECT_TRUE(esperar([v] { return v->isActiveWindow(); }));  // only the active window gets keys
    return v;
  }
  template <ventanas::EsPuerta P>
  ventanas::Ventana* abrir(const P& puerta) {
    auto* v = escritorio.ventanas().abrir(puerta);
    EXPECT_NE(v, nullptr);
    EXPECT_TRUE(esperar([v] { return v->isActiveWindow(); }));
    return v;
  }
  // Calls `hacer` as soon as a modal window is on top, and active: one that is closed before leaves
  // no window active.
  template <class F>
  void alAbrirse(F hacer, int veces = 0) {
    QTimer::singleShot(30, &escritorio.ventanas(), [this, hacer, veces] {
      constexpr int kBastantes = 100;
      QWidget* w = QApplication::activeModalWidget();
      if (!w || (!w->isActiveWindow() && veces < kBastantes))
        return alAbrirse(hacer, w ? veces + 1 : 0);
      const auto* mensaje = w->findChild<QLabel*>(u"Mensaje"_s);
      textoModal = mensaje ? mensaje->text() : QString();
      hacer(w);
    });
  }
  // Presses a button of the next modal window.
  void responder(const QString& boton) {
    alAbrirse([boton](QWidget* w) {
      auto* b = w->findChild<QPushButton*>(boton);
      ASSERT_NE(b, nullptr) << boton.toStdString();
      QTest::mouseClick(b, Qt::LeftButton);
    });
  }

  QString textoModal;  // of the last box passed to alAbrirse()
  QTemporaryDir carpeta;
  Ajustes ajustes;
  std::unique_ptr<dao::Database> db =
      bien(dao::Database::OpenDatabase(ruta(u"TARVO.MDB"_s), {.crear = true}));
  Textos textos;
  RelojReal reloj;
  ventanas::Escritorio escritorio{
      *qApp, *db, ajustes, textos, reloj, ventanas::Cara::Clara, ruta(u"VENTANAS.INI"_s)};

 protected:
  dao::Database& base() override { return *db; }

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

}  // namespace tarvo::prueba
