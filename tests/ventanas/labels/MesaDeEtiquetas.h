// A shop with two formats, a text set and a scale that prints with the first one, and the windows
// of labels.
#pragma once

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QSpinBox>
#include <QTableView>

#include "articles/TablasArticulos.h"
#include "core/esquema/Esquema.h"
#include "core/ventanas/marco/Tira.h"
#include "labels/ventanas/DibujoImpresion.h"
#include "labels/ventanas/Lienzo.h"
#include "labels/ventanas/Puertas.h"
#include "labels/ventanas/RegistrarVentanas.h"
#include "ventanas/Mesa.h"

namespace tarvo::prueba {

using namespace labels;

// "DOS" has a weight at (10, 20) and a frame; "UNO" nothing.
struct MesaDeEtiquetas : Mesa {
  MesaDeEtiquetas() {
    bien(esquema::ponerAlDia(*db, *Fecha::leer(u"01/01/2018"_s)));
    bien(articles::asegurarTablasArticulos(*db));
    sql(u"delete from BZAS"_s);
    seccion(1, u"Carne").departamento(1);
    articulo({.codigo = 10, .nombre = u"Lomo", .depto = 1, .precio = 1250});
    articulo({.codigo = 20, .nombre = u"Chuletas de Sajonia extra, el kilo", .depto = 1});
    fila(u"BZAS", {{u"SUGPO", 1}, {u"NMBZA", 1}, {u"ETQ11", u"DOS"}});
    fila(u"TEXTOSETQ", {{u"CODSET", u"CARNE"}, {u"Texto", u"Fresca\r\nDe aquí"}});
    fila(u"ETIQUETAS", {{u"NUMETQ", u"DOS"},
                        {u"settxt", {}},
                        {u"CAMPOS", kCabecera + kPeso + u"150050011000602\r\n"_s}});
    fila(u"ETIQUETAS", {{u"NUMETQ", u"UNO"}, {u"settxt", {}}, {u"CAMPOS", {}}});
    ajustes.TextoEtiquetas[5] = u"PESO"_s;
    registrarVentanasLabels(escritorio.ventanas(), catalogo);
  }

  QString campos(const QString& nombre) {
    return uno(u"select CAMPOS from ETIQUETAS where NUMETQ=?"_s, nombre).texto();
  }
  QString nombres() { return leer(u"select NUMETQ from ETIQUETAS order by NUMETQ"_s); }
  template <class W>
  static W& control(QWidget* v, const char16_t* nombre) {
    auto* w = v->findChild<W*>(QString::fromUtf16(nombre));
    EXPECT_NE(w, nullptr) << QString::fromUtf16(nombre).toStdString();
    return *w;
  }
  static Lienzo& lienzo(QWidget* v) { return control<Lienzo>(v, u"Lienzo"); }
  static ventanas::Parrilla& lista(QWidget* v, const char16_t* nombre = u"Grid") {
    return control<ventanas::Parrilla>(v, nombre);
  }
  // Sends a key to the control with the focus.
  static void tecla(Qt::Key k, Qt::KeyboardModifiers m = {}) {
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClick(QApplication::focusWidget(), k, m);
  }
  static void escribir(const QString& texto) {
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClicks(QApplication::focusWidget(), texto);
  }
  static void activar(QWidget* v) {
    v->activateWindow();
    EXPECT_TRUE(esperar([v] { return v->isActiveWindow(); }));
  }
  // Chooses an entry of the menu that a key opens.
  static void elegirEntrada(Qt::Key abre, const QString& texto) {
    tecla(abre);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    for (QAction* a : menu->actions())
      if (a->text().remove(u'&') == texto) {
        menu->setActiveAction(a);
        QTest::keyClick(menu, Qt::Key_Return);
        return;
      }
    FAIL() << texto.toStdString();
  }
  // Drags by the pointer, from the middle of a field or from a place of the viewport.
  static void arrastrar(Lienzo& l, QPoint desde, QPoint cuanto, Qt::KeyboardModifiers m = {}) {
    QWidget* v = l.viewport();
    QTest::mousePress(v, Qt::LeftButton, m, desde);
    for (int i = 1; i <= 4; ++i) {
      QMouseEvent mueve(QEvent::MouseMove, desde + cuanto * i / 4, v->mapToGlobal(desde),
                        Qt::NoButton, Qt::LeftButton, m);
      QApplication::sendEvent(v, &mueve);
    }
    QTest::mouseRelease(v, Qt::LeftButton, m, desde + cuanto);
  }
  static QPoint centro(Lienzo& l, size_t cual) {
    return l.enVista(QRectF(l.cajaDelCampo(cual)).center()).toPoint();
  }

  static inline const QString kCabecera = u"001910000000000\r\n"_s,
                              kPeso = u"010100200140000\r\n"_s;
  articles::Catalogo catalogo{*db, textos, reloj, u"ana"_s};
};

}  // namespace tarvo::prueba
