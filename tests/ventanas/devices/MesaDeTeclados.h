// A shop whose section 1 has articles 3, 5, 10, 11 and 12 in two departments, and the window of
// keyboards.
#pragma once

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QTableView>

#include "articles/AjustesArticulos.h"
#include "articles/TablasArticulos.h"
#include "core/esquema/Esquema.h"
#include "core/ventanas/marco/Tira.h"
#include "devices/TecladosDefault.h"
#include "devices/ventanas/RegistrarVentanas.h"
#include "devices/ventanas/TecladoVentana.h"
#include "ventanas/Mesa.h"

namespace tarvo::prueba {

using namespace devices;

struct MesaDeTeclados : Mesa {
  MesaDeTeclados() : Mesa({}, {articles::ajustesArticulos()}) {
    bien(esquema::ponerAlDia(*db, *Fecha::leer(u"01/01/2018"_s)));
    bien(articles::asegurarTablasArticulos(*db));
    en(1).departamento(1, u"Fruta").departamento(2, u"Verdura");
    articulo({.codigo = 3, .nombre = u"MANZANA", .depto = 1});
    articulo({.codigo = 5, .nombre = u"PERA", .depto = 1});
    articulo({.codigo = 10, .nombre = u"ACELGA", .depto = 2});
    articulo({.codigo = 11, .nombre = u"COL", .depto = 2});
    articulo({.codigo = 12, .nombre = u"BERZA", .depto = 2});
    registrarVentanasTeclados(escritorio.ventanas(), catalogo);
  }
  // Lines "1:21 2:22" as the text of keys, "1:3" as that of direct PLUs.
  static TextosTeclado textosDe(const QString& teclas, const QString& plus = {},
                                const QString& taras = {}) {
    const auto lineas = [](const QString& t, int cifras, int valor) {
      QString s;
      for (const QString& una : t.split(u' ', Qt::SkipEmptyParts))
        s += una.section(u':', 0, 0).rightJustified(cifras, u'0') + u':' +
             una.section(u':', 1).rightJustified(valor, u'0') + u"\r\n"_s;
      return s;
    };
    return {lineas(teclas, 3, 3), lineas(plus, 3, 7), lineas(taras, 2, 4)};
  }
  TecladoVentana* abrirTeclado(int tipo, const TextosTeclado& suyos = {}) {
    v = static_cast<TecladoVentana*>(abrir(PuertaTeclado{.tipo = tipo, .textos = suyos}));
    return v;
  }
  // Opens it as a dialog, works on it, and accepts.
  std::optional<TextosTeclado> aceptar(const PuertaTeclado& puerta,
                                       const std::function<void()>& hacer) {
    alAbrirse([this, hacer](QWidget* w) {
      v = static_cast<TecladoVentana*>(w);
      EXPECT_TRUE(esperar([w] { return w->isActiveWindow(); }));
      hacer();
      QTest::mouseClick(w->findChild<QPushButton*>(u"Acepto"_s), Qt::LeftButton);
    });
    return escritorio.ventanas().preguntar(puerta, nullptr);
  }

  LienzoTeclado& lienzo() { return *control<LienzoTeclado>(u"lienzo"); }
  template <class W>
  W* control(const char16_t* nombre) {
    auto* w = v->findChild<W*>(QString::fromUtf16(nombre));
    EXPECT_NE(w, nullptr) << QString::fromUtf16(nombre).toStdString();
    return w;
  }
  ventanas::Parrilla& lista(const char16_t* nombre) { return *control<ventanas::Parrilla>(nombre); }
  // The name of the control with the focus.
  static QString foco() {
    const QWidget* w = QApplication::focusWidget();
    return w ? w->objectName() : QString();
  }
  // Back to the keys after a box.
  void volver() {
    v->activateWindow();
    ASSERT_TRUE(esperar([this] { return v->isActiveWindow(); }));
    lienzo().setFocus();
  }
  static void tecla(Qt::Key k, Qt::KeyboardModifiers m = {}) {
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClick(QApplication::focusWidget(), k, m);
  }
  // Each key goes to the control that has the focus by then.
  static void escribir(const QString& texto) {
    for (const QChar c : texto) {
      ASSERT_NE(QApplication::focusWidget(), nullptr);
      QTest::keyClicks(QApplication::focusWidget(), QString(c));
    }
  }
  // In words.
  QString hace(int tecla) { return lienzo().cara(tecla).queHace; }
  QPoint centro(int tecla) { return lienzo().sitio(tecla).center().toPoint(); }
  // With the left button held from one place of the screen to another.
  static void arrastrar(QWidget& de, QPoint desde, const QPoint& hasta) {
    const auto raton = [&](QEvent::Type que, const QPoint& global, Qt::MouseButtons abajo) {
      QMouseEvent e(que, de.mapFromGlobal(QPointF(global)), QPointF(global), Qt::LeftButton, abajo,
                    Qt::NoModifier);
      QApplication::sendEvent(&de, &e);
    };
    desde = de.mapToGlobal(desde);
    raton(QEvent::MouseButtonPress, desde, Qt::LeftButton);
    raton(QEvent::MouseMove, (desde + hasta) / 2, Qt::LeftButton);
    raton(QEvent::MouseMove, hasta, Qt::LeftButton);
    raton(QEvent::MouseButtonRelease, hasta, Qt::NoButton);
  }

  articles::Catalogo catalogo{*db, textos, reloj, u"ana@caja"_s};
  TecladoVentana* v = nullptr;
};

}  // namespace tarvo::prueba
