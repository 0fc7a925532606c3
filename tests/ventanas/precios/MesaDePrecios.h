// A shop with one section, 40 articles and two groups with all of them, its windows of offers and
// prices, and a list that walks the articles like BrowPLUs.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTimer>

#include "articles/TablasArticulos.h"
#include "articles/precios/AjustesPrecios.h"
#include "articles/precios/ventanas/Puertas.h"
#include "articles/precios/ventanas/RegistrarVentanas.h"
#include "articles/ventanas/Puertas.h"
#include "core/esquema/Esquema.h"
#include "core/ventanas/marco/Recorrido.h"
#include "core/ventanas/marco/Tira.h"
#include "ventanas/Mesa.h"

namespace tarvo::prueba {

// Moves its pointer over the codes of section 1.
class ListaDeArticulos final : public ventanas::Ventana, public ventanas::Recorrido {
 public:
  ventanas::Recorrido* recorrido() override { return this; }
  ListaDeArticulos(ventanas::Contexto& c, const QString& nombre) : Ventana(c, nombre) {
    resize(300, 200);
    setFocusPolicy(Qt::StrongFocus);
  }
  Resultado<> entrar(const articles::PuertaBrowPLUs&) { return {}; }
  Clave clave() const override { return {1, codigo}; }
  bool saltar(int pasos) override {
    const qint64 otro = codigo + pasos;
    if (otro < 3 || otro > 42) return false;
    codigo = otro;
    movido();
    return true;
  }
  void refrescar() override { ++refrescos; }
  void refrescarEn(Clave c) override { ++refrescos, codigo = c.codigo; }
  void hijo(bool mas) override { hijos += mas ? 1 : -1; }
  void alMover(QObject*, std::function<void()> f) override { movido = std::move(f); }

  qint64 codigo = 3;
  int refrescos = 0, hijos = 0;
  std::function<void()> movido = [] {};
};

struct MesaDePrecios : Mesa {
  MesaDePrecios() : Mesa({}, {precios::ajustesPrecios()}) {
    bien(esquema::ponerAlDia(*db, *Fecha::leer(u"01/01/2018")));
    bien(articles::asegurarTablasArticulos(*db));
    seccion(1, u"Carne", u"4@10@21@0@0");
    departamento(1, u"Departamento 1", 2).departamento(2, u"Departamento 2", 2);
    almacen(1).almacen(2, u"Cámara");
    for (const int g : {1, 2})
      grupo({.codigo = g, .nombre = u"Mostrador %1"_s.arg(g), .almacen = 1});
    for (int i = 3; i <= 42; ++i)
      articulo({.codigo = i,
                .nombre = u"Artículo %1"_s.arg(i),
                .depto = 1,
                .precio = 100 * i,
                .coste = 500})
          .cruce(1, {i})
          .cruce(2, {i});
    precios::registrarVentanasPrecios(escritorio.ventanas(), catalogo, ofertas);
    escritorio.ventanas().registrar<articles::PuertaBrowPLUs, ListaDeArticulos>();
  }

  static QLineEdit& campo(QWidget* v, const QString& nombre) {
    return *v->findChild<QLineEdit*>(nombre);
  }
  static void escribir(QWidget* v, const QString& nombre, const QString& texto) {
    QLineEdit& c = campo(v, nombre);
    c.setFocus();
    c.selectAll();
    if (texto.isEmpty()) QTest::keyClick(&c, Qt::Key_Delete);
    QTest::keyClicks(&c, texto);
  }
  static QString texto(QWidget* v, const QString& nombre) {
    return v->findChild<QLabel*>(nombre)->text();
  }
  // The control with the focus. After a box, this platform gives the focus to no window.
  QWidget* foco() {
    if (!QApplication::focusWidget()) escritorio.ventanas().abiertas().back()->activateWindow();
    EXPECT_TRUE(esperar([] { return QApplication::focusWidget() != nullptr; }));
    return QApplication::focusWidget();
  }
  QString enFoco() { return foco()->objectName(); }
  void teclear(const QString& texto) { QTest::keyClicks(foco(), texto); }
  void pulsar(int tecla) { QTest::keyClick(foco(), static_cast<Qt::Key>(tecla)); }
  static void boton(QWidget* v, const QString& nombre) {
    QTest::mouseClick(v->findChild<QPushButton*>(nombre), Qt::LeftButton);
  }

  precios::AjustesPrecios& suyos = ajustes.de<precios::AjustesPrecios>();
  articles::Catalogo catalogo{*db, textos, reloj, u"Ana"_s};
  precios::Ofertas ofertas{*db, textos, reloj};
};

}  // namespace tarvo::prueba
