// A user at a shop's windows of communications: real engine, database, texts and windows, machine
// models at the other end of the lines, and a virtual clock.
#pragma once

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include "comm/ventanas/RegistrarVentanas.h"
#include "core/ventanas/marco/Escritorio.h"
#include "core/ventanas/marco/Tira.h"
#include "core/ventanas/parrilla/Parrilla.h"
#include "motor/TiendaDeMotor.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

struct MesaDeComm : TiendaDeMotor {
  explicit MesaDeComm(const std::vector<SalaDeAjustes>& salas = {}) : TiendaDeMotor(salas) {
    gestor->VigilaProcesos(0, false, nullptr);
    comm::registrarVentanasComm(escritorio.ventanas(),
                                {*gestor, *enlaces, *sesion, repertorio, grupos});
    QObject::connect(&escritorio.ventanas(), &ventanas::Ventanas::abierta, qApp,
                     [this](ventanas::Ventana* v) { abiertas << v->nombre(); });
  }

  ventanas::Ventana* abrir(const QString& nombre) {
    auto* v = escritorio.ventanas().abrir(nombre);
    EXPECT_TRUE(v) << nombre.toStdString();
    EXPECT_TRUE(!v || QTest::qWaitForWindowActive(v));
    return v;
  }
  template <ventanas::EsPuerta P>
  ventanas::Ventana* abrir(const P& puerta) {
    auto* v = escritorio.ventanas().abrir(puerta);
    EXPECT_TRUE(v);
    EXPECT_TRUE(!v || QTest::qWaitForWindowActive(v));
    return v;
  }
  template <class W>
  W* control(const QString& nombre, const QString& ventana = u"gestcomm"_s) {
    auto* v = escritorio.ventanas().cargada(ventana);
    auto* w = v ? v->findChild<W*>(nombre) : nullptr;
    EXPECT_TRUE(w) << ventana.toStdString() << '.' << nombre.toStdString();
    return w;
  }
  ventanas::Parrilla* cola() { return control<ventanas::Parrilla>(u"s_espe"_s); }
  QAction* accion(const QString& nombre) { return control<QAction>(nombre); }

  // Advances the clock in steps, with the event loop running in between.
  void pasar(int ms) {
    for (int i = 0; i < ms; i += 50) {
      reloj.avanzar(50);
      QCoreApplication::processEvents();
    }
  }
  template <class F>
  bool hasta(F condicion, int segundos = 120) {
    constexpr int kPasosSinEsperar = 100;
    for (int i = 0; i < segundos * 20 && !condicion(); ++i) {
      pasar(50);
      // Queries in other threads need real time.
      if (i > kPasosSinEsperar) QTest::qSleep(5);
    }
    return condicion();
  }
  // The user's actions in the next modal window or box.
  void luego(std::function<void(QWidget*)> hacer) {
    QMetaObject::invokeMethod(
        qApp,
        [hacer = std::move(hacer)] {
          QWidget* modal = QApplication::activeModalWidget();
          ASSERT_TRUE(modal);
          hacer(modal);
        },
        Qt::QueuedConnection);
  }
  // Returns the text of the box opened by `hacer`, and closes it with the button named.
  QString caja(const std::function<void()>& hacer, const QString& boton = u"Acepto"_s) {
    QString texto;
    luego([&](QWidget* w) {
      if (auto* l = w->findChild<QLabel*>(u"Mensaje"_s)) texto = l->text();
      QTest::mouseClick(w->findChild<QPushButton*>(boton), Qt::LeftButton);
    });
    hacer();
    return texto;
  }
  // Opens a menu of the window from the keyboard with Alt and its letter, and chooses an entry with
  // its own.
  void menu(Qt::Key cual, Qt::Key entrada) {
    QTest::keyClick(escritorio.ventanas().cargada(u"gestcomm"_s), cual, Qt::AltModifier);
    QWidget* m = QApplication::activePopupWidget();
    ASSERT_TRUE(m);
    QTest::keyClick(m, entrada);
  }
  QString celda(int fila, QStringView campo) { return cola()->texto(fila, campo); }

  Textos textos = bien(Textos::leer(QStringLiteral(TARVO_DATOS "/textos/es.txt")));
  envios::Grupos grupos{*db, *ajustes, textos, reloj};
  ventanas::Escritorio escritorio{*qApp, *db, *ajustes, textos, reloj, ventanas::Cara::Clara, {}};
  QStringList abiertas;
};

}  // namespace tarvo::prueba
