// The list of articles: order, search, what is asked on leaving; the editor's checks; how fast.
#include <QTabWidget>

#include "Colmado.h"

namespace tarvo::prueba {

TEST(ListaArticulos, OrdenYBusquedaGuardanElArticulo) {
  Colmado t;
  t.sql(u"update PLUSES set NOMPLU='Ñora' where CODPLU=10"_s);
  t.sql(u"update PLUSES set NOMPLU='Óregano' where CODPLU=20 and SECCION=1"_s);
  t.sql(u"update PLUSES set NOMPLU='nabo' where CODPLU=30"_s);
  auto* v = t.abrir(u"BrowPLUs"_s);
  auto& grid = t.lista(v);
  t.control<QAbstractButton>(v, u"ModoNom")->click();
  EXPECT_EQ(t.enMano(grid), 10);
  QStringList nombres;
  for (int f = 7; f < 10; ++f) nombres << grid.texto(f, u"NOMPLU");
  EXPECT_EQ(nombres.join(u' '), u"nabo Ñora Óregano");
  auto* salto = t.control(v, u"EntBus");
  EXPECT_EQ(salto->maxLength(), 30);
  salto->setFocus();
  t.escribir(u"o"_s);
  t.tecla(Qt::Key_Return);
  EXPECT_EQ(t.enMano(grid), 20);
  EXPECT_TRUE(salto->text().isEmpty());
  EXPECT_TRUE(grid.vista()->hasFocus());
  t.control<QAbstractButton>(v, u"ModoCod")->click();
  EXPECT_EQ(t.enMano(grid), 20);
  salto->setFocus();
  t.escribir(u"45"_s);
  t.tecla(Qt::Key_Return);
  EXPECT_EQ(t.enMano(grid), 50);
  auto* filtro = t.control(v, u"Filtro");
  filtro->setFocus();
  t.escribir(u"oreg"_s);
  EXPECT_EQ(grid.filas(), 1);
  t.tecla(Qt::Key_Escape);
  EXPECT_EQ(grid.filas(), 12) << "Escape clears the filter before it closes the window";
  EXPECT_TRUE(v->isVisible());
  auto* secciones = t.control<QComboBox>(v, u"LstSec");
  secciones->setCurrentIndex(1);
  Q_EMIT secciones->activated(1);
  EXPECT_EQ(grid.filas(), 1);
}

TEST(ListaArticulos, LosHijosSiguenSuPuntero) {
  Colmado t;
  t.abrir(u"BrowPLUs"_s);
  auto* lista = dynamic_cast<ventanas::Recorrido*>(t.escritorio.ventanas().cargada(u"BrowPLUs"_s));
  ASSERT_NE(lista, nullptr);
  auto hijo = std::make_unique<QObject>();
  int movido = 0;
  lista->alMover(hijo.get(), [&] { ++movido; });
  EXPECT_TRUE(lista->saltar(1));
  EXPECT_EQ(lista->clave(), (ventanas::Recorrido::Clave{1, 20}));
  EXPECT_EQ(movido, 1);
  lista->refrescar();
  EXPECT_EQ(movido, 1) << "the same article";
  hijo.reset();
  EXPECT_TRUE(lista->saltar(1));
  EXPECT_EQ(movido, 1);
  lista->refrescarEn({1, 90});
  EXPECT_EQ(lista->clave().codigo, 90);
}

// What is asked and queued when the list closes, by the setting, the answer and whether anything
// was changed.
TEST(ListaArticulos, EnviarAlSalir) {
  const struct {
    int valor;
    bool cambia;
    const char16_t* boton;  // empty: nothing is asked
    bool noMas;
    int tareas, queda;
  } casos[] = {{0, true, u"", false, 0, 0},   {1, false, u"", false, 0, 1},
               {1, true, u"No", false, 0, 1}, {1, true, u"Si", false, 4, 1},
               {1, true, u"Si", true, 4, 2},  {1, true, u"No", true, 0, 0},
               {2, true, u"", false, 4, 2},   {2, false, u"", false, 0, 2}};
  for (const auto& c : casos) {
    Colmado t;
    t.ajustes.EnviarCambios[1] = c.valor;
    auto* v = t.abrir(u"BrowPLUs"_s);
    if (c.cambia) bien(t.catalogo.ponerPrecios({1, 10}, Precios{}, u"BrowPLUs"_s));
    bool preguntado = false;
    if (*c.boton)
      t.alAbrirse([&](QWidget* w) {
        preguntado = true;
        t.control<QCheckBox>(w, u"NoMas")->setChecked(c.noMas);
        t.control<QPushButton>(w, c.boton)->click();
      });
    v->descargar();
    EXPECT_EQ(preguntado, *c.boton != 0);
    EXPECT_EQ(static_cast<int>(t.gestor->tareas().size()), c.tareas)
        << c.valor << c.cambia << c.noMas;
    for (const auto& tarea : t.gestor->tareas()) {
      EXPECT_EQ(tarea.datos.Clase, 1);
      EXPECT_FALSE(tarea.datos.Todo);
    }
    EXPECT_EQ(t.ajustes.EnviarCambios[1], c.queda);
    EXPECT_TRUE(t.cambiadas().empty());
  }
}

// All 24 prices and the cost can be shown; at first the base price of the first tarifa alone is.
TEST(ListaArticulos, LosPreciosOcultos) {
  Colmado t;
  t.sql(u"update PLUSES set PRECIO_25=1234 where SECCION=1 and CODPLU=10"_s);
  auto& grid = t.lista(t.abrir(u"BrowPLUs"_s));
  QStringList vistos;
  for (int nivel = 0; nivel < kNiveles; ++nivel)
    for (int tarifa = 0; tarifa < kTarifas; ++tarifa)
      if (!grid.vista()->isColumnHidden(grid.modelo()->columna(columnaPrecio(nivel, tarifa))))
        vistos << columnaPrecio(nivel, tarifa);
  EXPECT_EQ(vistos.join(u' '), u"PRECIO_00");
  const int columna = grid.modelo()->columna(u"PRECIO_25");
  EXPECT_EQ(grid.modelo()->headerData(columna, Qt::Horizontal, Qt::DisplayRole).toString(),
            u"Hasta 2, tarifa 5");
  EXPECT_EQ(grid.texto(grid.filaActual(), u"PRECIO_25"), u"12,34");
  grid.vista()->setColumnHidden(columna, false);
  t.abrirCelda(grid, u"PRECIO_25"_s);
  t.escribir(u"9,5"_s);
  t.tecla(Qt::Key_Return);
  EXPECT_EQ(t.leer(u"select PRECIO_25, PRECIO_00 from PLUSES where SECCION=1 and CODPLU=10"_s),
            u"950 100");
  EXPECT_EQ(t.cruces(), u"20 1 0");
}

// The queue empties: the window from which the list was opened says so.
TEST(ListaArticulos, ElFinDelEnvioSeDice) {
  Colmado t;
  t.ajustes.EnviarCambios[1] = 2;
  auto* arbol = t.abrir(u"BrowGrupos"_s, {{u"Depts"_s, true}});
  t.tecla(Qt::Key_F4);
  t.cargada(u"BrowPLUs"_s);
  bien(t.catalogo.ponerPrecios({1, 10}, Precios{}, u"BrowPLUs"_s));
  t.tecla(Qt::Key_Escape);
  ASSERT_TRUE(esperar([&] { return t.gestor->tareas().size() == 4; }));
  EXPECT_EQ(t.escritorio.ventanas().cargada(u"BrowPLUs"_s), nullptr);
  EXPECT_TRUE(arbol->tira().isHidden());
  t.gestor->terminator();
  ASSERT_TRUE(esperar([&] { return !arbol->tira().isHidden(); }));
  EXPECT_EQ(arbol->tira().texto(), u"Ha acabado el envío de los cambios a 4 grupos.");
  EXPECT_TRUE(esperar([&] { return arbol->findChild<QObject*>(u"avisoDeFin"_s) == nullptr; }))
      << "who has said it looks on no more";
}

TEST(Editor, LaListaDeFaltasYLaPrimeraDelante) {
  Colmado t;
  auto* v = t.abrir(u"xEditPLU#1.10"_s, {{u"seccion"_s, 1}, {u"codigo"_s, 10}});
  t.control(v, u"txFormato")->setText(u"21"_s);
  t.control(v, u"txMinimo")->setText(u"99999,99"_s);
  t.control(v, u"txHasta2")->setText(u"doce"_s);
  t.responder(u"Acepto"_s);
  t.control<QPushButton>(v, u"Guardar")->click();
  EXPECT_EQ(t.textoModal,
            u"El valor entrado es incorrecto:\nFormato Etiquetas\nPrecio mínimo\nValor Hasta2");
  EXPECT_EQ(t.control<QTabWidget>(v, u"Fichas")->currentWidget()->objectName(), u"etq");
  EXPECT_EQ(v->focusWidget(), t.control(v, u"txFormato"));
  EXPECT_EQ(t.leer(u"select FORMATO, minimo, HASTA_2 from PLUSES where SECCION=1 and CODPLU=10"_s),
            u"1 0 0");
  EXPECT_EQ(t.cruces(), u"10 1 0 | 20 1 0");
  // Leaving asks; a "No" stays.
  t.responder(u"Cancelo"_s);
  v->close();
  EXPECT_EQ(t.textoModal, u"¿Abandonar los cambios realizados?");
  EXPECT_TRUE(v->isVisible());
}

TEST(Editor, NiLaMonedaNiLaUnidadCambianNada) {
  Colmado t;
  t.ajustes.Euro = 166.386F;
  t.sql(
      u"update PLUSES set COSTE=333, minimo=101, HASTA_1=1505, STK_MAX=2500 where SECCION=1 and CODPLU=10"_s);
  auto* v = t.abrir(u"xEditPLU#1.10"_s, {{u"seccion"_s, 1}, {u"codigo"_s, 10}});
  EXPECT_EQ(t.control(v, u"txCoste")->text(), u"3,33");
  t.tecla(Qt::Key_M, Qt::ControlModifier);
  EXPECT_EQ(t.control(v, u"txCoste")->text(), u"554");
  QTest::mouseDClick(t.control<QWidget>(v, u"Moneda"), Qt::LeftButton);
  EXPECT_EQ(t.control(v, u"txCoste")->text(), u"3,33");
  t.tecla(Qt::Key_M, Qt::ControlModifier);
  auto* unidad = t.control<QComboBox>(v, u"LstCada");
  unidad->setCurrentIndex(2);
  EXPECT_EQ(t.control(v, u"txHasta1")->text(), u"1.505");
  EXPECT_EQ(t.control<QLabel>(v, u"lbUni")->text(), u"Uds.");
  unidad->setCurrentIndex(0);
  t.control(v, u"txNom")->setText(u"Otro"_s);
  t.control<QPushButton>(v, u"Guardar")->click();
  EXPECT_FALSE(v->isVisible());
  EXPECT_EQ(
      t.leer(
          u"select NOMPLU, COSTE, minimo, HASTA_1, STK_MAX, CADA from PLUSES where SECCION=1 and CODPLU=10"_s),
      u"Otro 333 101 1505 2500 0");
}

TEST(Editor, BarrasExistenciasYLoQueOtroCambio) {
  Colmado t;
  auto* v = t.abrir(u"xEditPLU#1.10"_s, {{u"seccion"_s, 1}, {u"codigo"_s, 10}});
  auto* dibujo = t.control<QLabel>(v, u"dibujo");
  auto* corregir = t.control<QPushButton>(v, u"Corregir");
  EXPECT_FALSE(dibujo->pixmap().isNull());
  t.control(v, u"txBarExt")->setText(u"8412345678904"_s);
  EXPECT_FALSE(corregir->isHidden());
  EXPECT_TRUE(dibujo->pixmap().isNull());
  corregir->click();
  EXPECT_EQ(t.control(v, u"txBarExt")->text(), u"8412345678905");
  EXPECT_FALSE(dibujo->pixmap().isNull());
  t.control<QTabWidget>(v, u"Fichas")->setCurrentIndex(2);
  auto& stock = t.lista(v, u"GrdStk");
  t.abrirCelda(stock, u"Inicial"_s);
  t.escribir(u"2,5"_s);
  t.tecla(Qt::Key_Return);
  EXPECT_EQ(stock.texto(0, u"actual"), u"2,500");
  t.sql(u"update PLUSES set PRECIO_00=5 where SECCION=1 and CODPLU=10"_s);
  t.responder(u"Cancelo"_s);
  t.control<QPushButton>(v, u"Guardar")->click();
  EXPECT_TRUE(t.textoModal.startsWith(u"Otra ventana ha cambiado"));
  EXPECT_EQ(t.leer(u"select PRECIO_00 from PLUSES where SECCION=1 and CODPLU=10"_s), u"5");
  t.responder(u"Acepto"_s);
  t.control<QPushButton>(v, u"Guardar")->click();
  EXPECT_EQ(t.leer(u"select PRECIO_00, CodBarExt from PLUSES where SECCION=1 and CODPLU=10"_s),
            u"100 8412345678905");
  EXPECT_EQ(t.leer(u"select CODIGO, Inicial, Venta from MovsAlm"_s), u"10 2500 0");
  // The bar code stands in the section already.
  v = t.abrir(u"xEditPLU#1.20"_s, {{u"seccion"_s, 1}, {u"codigo"_s, 20}});
  t.control(v, u"txBarExt")->setText(u"8412345678905"_s);
  t.responder(u"Acepto"_s);
  t.control<QPushButton>(v, u"Guardar")->click();
  EXPECT_EQ(t.textoModal, u"El código de registro ya existe: No debe duplicarse");
  EXPECT_TRUE(v->isVisible());
  // What isn't there opens nothing.
  EXPECT_EQ(
      t.escritorio.ventanas().abrir(u"xEditPLU#1.99"_s, v, {{u"seccion"_s, 1}, {u"codigo"_s, 99}}),
      nullptr);
}

}  // namespace tarvo::prueba
