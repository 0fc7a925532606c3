// A shop with two sections, an engine that queues tasks, and the windows of the catalogue on top.
#pragma once

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <QTreeWidget>

#include "articles/AjustesArticulos.h"
#include "articles/TablasArticulos.h"
#include "articles/precios/AjustesPrecios.h"
#include "articles/ventanas/Puertas.h"
#include "articles/ventanas/RegistrarVentanas.h"
#include "comm/cables/AjustesCables.h"
#include "comm/enlace/AjustesEnlace.h"
#include "comm/motor/AjustesMotor.h"
#include "core/esquema/Esquema.h"
#include "core/ventanas/marco/Recorrido.h"
#include "core/ventanas/marco/Tira.h"
#include "motor/CableSimulado.h"
#include "totals/libros/AjustesSesion.h"
#include "totals/libros/TablasLibros.h"
#include "totals/periodos/TablasTotales.h"
#include "ventanas/Mesa.h"

namespace tarvo::prueba {

using namespace articles;

// Section 1 has department 1 "Fruta" with articles 10, 20, ... 100 at 1,00 to 10,00, and groups 1
// to 4 of kinds 1 to 4; section 2 has article 20 alone. Group 1 holds articles 10 and 20.
struct MesaDeArticulos : Mesa {
  MesaDeArticulos()
      : Mesa({}, {articles::ajustesArticulos(), precios::ajustesPrecios(), totals::ajustesSesion(),
                  enlace::ajustesCables(), enlace::ajustesEnlace(), motor::ajustesMotor()}) {
    sql(u"create table if not exists nada (n)"_s);
    bien(esquema::ponerAlDia(*db, *Fecha::leer(u"01/01/2018"_s)));
    bien(totals::asegurarTablasLibros(*db));
    bien(totals::asegurarTablasTotales(*db));
    bien(asegurarTablasArticulos(*db));
    sql(u"delete from GRUPOS"_s);
    en(1).departamento(1, u"Fruta");
    for (int g = 1; g <= 4; ++g) grupo({.codigo = g, .tipo = g, .remoto = 2});
    for (int c = 10; c <= 100; c += 10) articulo(1, c, u"Artículo %1"_s.arg(c));
    seccion(2);
    articulo(2, 20, u"Lomo"_s);
    en(1).cruce(1, {10, 20});
    bien(sesion.cargar());
    registrarVentanasArticulos(escritorio.ventanas(), catalogo, operadores, *gestor);
  }

  using Tienda::articulo;
  void articulo(int seccion, int codigo, const QString& nombre) {
    en(seccion).articulo({.codigo = codigo, .nombre = nombre, .depto = 1, .precio = codigo * 10});
  }
  QString cruces() { return leer(u"select plu, Grupo, borra from [Cross] order by plu, Grupo"_s); }
  std::vector<int> cambiadas() { return catalogo.cambios().SeccionesModificadas(); }

  bool activa(QWidget* v) {
    return esperar([v] { return v && v->isActiveWindow(); });
  }
  // A window opened by an earlier action, once it is active.
  ventanas::Ventana* cargada(const QString& nombre) {
    EXPECT_TRUE(esperar([&] { return escritorio.ventanas().cargada(nombre) != nullptr; }))
        << nombre.toStdString();
    auto* v = escritorio.ventanas().cargada(nombre);
    if (v) v->activateWindow();
    EXPECT_TRUE(activa(v));
    return v;
  }
  // Sends a key to the control with the focus.
  static void tecla(Qt::Key k, Qt::KeyboardModifiers m = {}) {
    QWidget* foco = QApplication::focusWidget();
    ASSERT_NE(foco, nullptr);
    QTest::keyClick(foco, k, m);
  }
  static void escribir(const QString& texto) {
    QWidget* foco = QApplication::focusWidget();
    ASSERT_NE(foco, nullptr);
    QTest::keyClicks(foco, texto);
  }
  template <class W = QLineEdit>
  static W* control(QWidget* v, const char16_t* nombre) {
    auto* w = v->findChild<W*>(QString::fromUtf16(nombre));
    EXPECT_NE(w, nullptr) << QString::fromUtf16(nombre).toStdString();
    return w;
  }
  static ventanas::Parrilla& lista(QWidget* v, const char16_t* nombre = u"Grid") {
    return *control<ventanas::Parrilla>(v, nombre);
  }
  // Opens the editor of a cell in the current row.
  static void abrirCelda(ventanas::Parrilla& p, const QString& campo) {
    p.vista()->setFocus();
    p.vista()->setCurrentIndex(p.modelo()->index(p.filaActual(), p.modelo()->columna(campo)));
    QTest::keyClick(p.vista(), Qt::Key_F2);
    ASSERT_TRUE(p.editando()) << campo.toStdString();
    qobject_cast<QLineEdit*>(QApplication::focusWidget())->selectAll();
  }
  qint64 enMano(ventanas::Parrilla& p) { return p.valor(p.filaActual(), u"CODPLU").entero(); }

  Catalogo catalogo{*db, textos, reloj, u"ana@caja"_s};
  Operadores operadores{*db, textos};
  totals::Sesion sesion{*db, ajustes, reloj, textos};
  FabricaSimulada fabrica{reloj};
  Azar azar{3};
  enlace::Enlaces enlaces{reloj, ajustes, fabrica, azar};
  motor::RepertorioTareas repertorio = conEnvio();
  std::unique_ptr<motor::gestcomm> gestor = std::make_unique<motor::gestcomm>(
      motor::Entorno{*db, ajustes, reloj, sesion, textos}, enlaces, repertorio);

 private:
  // The kind of task that sends articles; it is never run here, since there is no channel.
  static motor::RepertorioTareas conEnvio() {
    motor::RepertorioTareas r;
    for (motor::ClaseTarea& c : motor::TablaClases()) {
      c.crear = [](const motor::DatosTarea&, const motor::Entorno&) {
        return std::unique_ptr<motor::CursoTarea>();
      };
      r.anadir(std::move(c));
    }
    return r;
  }
};

}  // namespace tarvo::prueba
