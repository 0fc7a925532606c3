// The list of articles: order, search, questions on leaving.
#include <QHeaderView>
#include <QToolBar>

#include "MesaDeArticulos.h"
#include "articles/Tanda.h"
#include "articles/ventanas/TextosArticulosVentanas.h"

namespace tarvo::prueba {

TEST(ListaArticulos, OrdenYBusquedaGuardanElArticulo) {
  MesaDeArticulos t;
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
  MesaDeArticulos t;
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
  EXPECT_EQ(movido, 1) << "not called for the same article";
  hijo.reset();
  EXPECT_TRUE(lista->saltar(1));
  EXPECT_EQ(movido, 1);
  lista->refrescarEn({1, 90});
  EXPECT_EQ(lista->clave().codigo, 90);
}

// The question and the queued tasks when the list closes, by setting, answer, and whether anything
// was changed.
TEST(ListaArticulos, EnviarAlSalir) {
  const struct {
    int valor;
    bool cambia;
    const char16_t* boton;  // empty: no question
    bool noMas;
    int tareas, queda;
  } casos[] = {{0, true, u"", false, 0, 0},   {1, false, u"", false, 0, 1},
               {1, true, u"No", false, 0, 1}, {1, true, u"Si", false, 4, 1},
               {1, true, u"Si", true, 4, 2},  {1, true, u"No", true, 0, 0},
               {2, true, u"", false, 4, 2},   {2, false, u"", false, 0, 2}};
  for (const auto& c : casos) {
    MesaDeArticulos t;
    t.ajustes.de<AjustesArticulos>().EnviarCambios[1] = c.valor;
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
      EXPECT_EQ(tarea.datos.Clase, TipoTarea::TxPlus);
      EXPECT_FALSE(tarea.datos.Todo);
    }
    EXPECT_EQ(t.ajustes.de<AjustesArticulos>().EnviarCambios[1], c.queda);
    EXPECT_TRUE(t.cambiadas().empty());
  }
}

// Escape or Cancelar at that question goes back to the list, or to the tree, with what can be
// undone there; nothing is stored or sent, and the next closing asks again.
TEST(ListaArticulos, AlPreguntarSePuedeVolver) {
  for (const bool escape : {true, false}) {
    MesaDeArticulos t;
    auto* arbol = t.abrir(PuertaBrowGrupos{});
    auto* v = t.abrir(PuertaBrowPLUs{.seccion = 1});
    t.abrirCelda(t.lista(v), u"PRECIO_00"_s);
    t.escribir(u"1,20"_s);
    t.tecla(Qt::Key_Return);
    for (const bool segunda : {false, true}) {
      bool preguntado = false;
      t.alAbrirse([&](QWidget* w) {
        preguntado = true;
        t.control<QCheckBox>(w, u"NoMas")->setChecked(true);
        if (escape)
          QTest::keyClick(w, Qt::Key_Escape);
        else
          t.control<QPushButton>(w, u"Cancelar")->click();
      });
      EXPECT_FALSE(v->descargar());
      EXPECT_TRUE(preguntado) << segunda;
    }
    EXPECT_EQ(t.ajustes.de<AjustesArticulos>().EnviarCambios[1], 1);
    EXPECT_TRUE(t.gestor->tareas().empty());
    v->findChild<QAction*>(u"Deshacer"_s)->trigger();
    EXPECT_EQ(t.leer(u"select PRECIO_00 from PLUSES where SECCION=1 and CODPLU=10"_s), u"100");
    EXPECT_TRUE(v->descargar());

    bien(t.catalogo.ponerPrecios({1, 10}, Precios{}, u"BrowPLUs"_s));
    t.alAbrirse([](QWidget* w) { QTest::keyClick(w, Qt::Key_Escape); });
    EXPECT_FALSE(arbol->descargar());
    EXPECT_EQ(t.cambiadas(), std::vector<int>{1});
  }
}

// Choosing what counts already settles what the file says and isn't understood.
TEST(ListaArticulos, ElEnvioQueSeEligeSustituyeALoQueNoSeEntiende) {
  MesaDeArticulos t;
  t.ajustes.leer(u"EnviarCambios= quizá\r\n"_s);
  auto* v = t.abrir(u"BrowPLUs"_s);
  EXPECT_TRUE(t.ajustes.escribir().contains(u"EnviarCambios= quizá\r\n"));
  for (QAction* a : v->findChildren<QAction*>())
    if (a->text() == t.textos(kTxPreguntarEnvio)) a->trigger();
  EXPECT_TRUE(t.ajustes.escribir().contains(u"EnviarCambios= 1|1\r\n"));
}

// What was undone isn't asked about: a price, deleted articles, a copied and a batch of them.
TEST(ListaArticulos, LoDeshechoNoSePregunta) {
  const std::pair<const char*, std::function<void(MesaDeArticulos&)>> casos[] = {
      {"price",
       [](MesaDeArticulos& t) {
         const Articulo antes = *bien(t.catalogo.leer({1, 10}));
         Articulo ahora = antes;
         ahora.precios[0][0] = 999;
         bien(t.catalogo.modificar({1, 10}, ahora, u"BrowPLUs"_s));
         EXPECT_EQ(bien(t.catalogo.seccionesQueDifieren()), std::vector<int>{1});
         bien(t.catalogo.volver(antes, ahora, u"BrowPLUs"_s));
       }},
      {"code",
       [](MesaDeArticulos& t) {
         const Articulo antes = *bien(t.catalogo.leer({1, 10}));
         Articulo ahora = antes;
         ahora.clave.codigo = 11;
         bien(t.catalogo.modificar({1, 10}, ahora, u"BrowPLUs"_s));
         bien(t.catalogo.volver(antes, ahora, u"BrowPLUs"_s));
       }},
      {"deleted",
       [](MesaDeArticulos& t) {
         Lotes lotes(t.catalogo);
         const qint64 lote = bien(lotes.empezar(u"BrowPLUs"_s));
         bien(lotes.borrar(lote, std::array{ClaveArticulo{1, 10}, ClaveArticulo{1, 20}}));
         bien(lotes.acabar(lote));
         EXPECT_EQ(bien(t.catalogo.seccionesQueDifieren()), std::vector<int>{1});
         bien(lotes.deshacer(lote, u"BrowPLUs"_s));
       }},
      {"copied",
       [](MesaDeArticulos& t) {
         Lotes lotes(t.catalogo);
         const qint64 lote = bien(lotes.empezar(u"BrowPLUs"_s));
         bien(lotes.copiar(lote, std::array{ClaveArticulo{1, 10}}, 2, u"EntNmSc"_s));
         bien(lotes.acabar(lote));
         bien(lotes.deshacer(lote, u"BrowPLUs"_s));
       }},
      {"batch", [](MesaDeArticulos& t) {
         Lotes lotes(t.catalogo);
         const qint64 lote = bien(lotes.empezar(u"CambioLote"_s));
         Articulo otro = *bien(t.catalogo.leer({1, 10}));
         otro.precios[0][0] = 999;
         bien(Tanda(t.catalogo, lotes, u"CambioLote"_s, Tanda::Oyen::Todos)
                  .escribir(lote, std::array{otro}));
         bien(lotes.acabar(lote));
         EXPECT_EQ(bien(t.catalogo.seccionesQueDifieren()), std::vector<int>{1});
         Lotes::Deshecho hecho;
         while (bien(lotes.deshacerTramo(lote, u"CambioLote"_s, hecho))) continue;
       }}};
  for (const auto& [cual, hacer] : casos) {
    MesaDeArticulos t;
    t.ajustes.de<AjustesArticulos>().EnviarCambios[1] = 2;  // whatever differs is sent
    auto* v = t.abrir(PuertaBrowPLUs{});
    hacer(t);
    EXPECT_TRUE(bien(t.catalogo.seccionesQueDifieren()).empty()) << cual;
    v->descargar();
    EXPECT_TRUE(t.gestor->tareas().empty()) << cual;
  }
}

// All 24 prices and the cost can be shown; by default only the base price of the first tarifa is.
TEST(ListaArticulos, LosPreciosOcultos) {
  MesaDeArticulos t;
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
            u"Hasta 2, tarifa 6");
  EXPECT_EQ(grid.texto(grid.filaActual(), u"PRECIO_25"), u"12,34");
  grid.vista()->setColumnHidden(columna, false);
  t.abrirCelda(grid, u"PRECIO_25"_s);
  t.escribir(u"9,5"_s);
  t.tecla(Qt::Key_Return);
  EXPECT_EQ(t.leer(u"select PRECIO_25, PRECIO_00 from PLUSES where SECCION=1 and CODPLU=10"_s),
            u"950 100");
  EXPECT_EQ(t.cruces(), u"20 1 0");
}

// Once the queue is empty, the window from which the list was opened reports it.
TEST(ListaArticulos, ElFinDelEnvioSeDice) {
  MesaDeArticulos t;
  t.ajustes.de<AjustesArticulos>().EnviarCambios[1] = 2;
  auto* arbol = t.abrir(PuertaBrowGrupos{});
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
      << "it is destroyed after its report";
}

// Every command is in the context menu of the list, with its key.
TEST(ListaArticulos, TodoEstaEnElMenu) {
  MesaDeArticulos t;
  auto* v = t.abrir(u"BrowPLUs"_s);
  QStringList menu;
  QTimer::singleShot(100, v, [&] {
    auto* m = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(m, nullptr);
    for (const QAction* a : m->actions()) menu << a->objectName();
    m->close();
  });
  t.tecla(Qt::Key_F10, Qt::ShiftModifier);
  for (const char16_t* barra : {u"barra", u"barra2"})
    for (const QAction* a : t.control<QToolBar>(v, barra)->actions()) {
      if (a->isSeparator()) continue;
      EXPECT_TRUE(menu.contains(a->objectName())) << a->objectName().toStdString();
      EXPECT_TRUE(!a->shortcut().isEmpty() || a->objectName() == u"Imprimir" || a->menu())
          << a->objectName().toStdString();
    }
}

// The current row is the highlighted one, whichever key moved to it.
TEST(ListaArticulos, LoActualEsLoElegido) {
  MesaDeArticulos t;
  auto* v = t.abrir(u"BrowPLUs"_s);
  auto& grid = t.lista(v);
  for (const Qt::Key k : {Qt::Key_End, Qt::Key_Home})
    for (const auto mandos : {Qt::NoModifier, Qt::ControlModifier}) {
      grid.irA(4);
      t.tecla(k, mandos);
      EXPECT_EQ(grid.filaActual(), k == Qt::Key_Home ? 0 : 11);
      EXPECT_EQ(grid.filasElegidas(), std::vector<int>{grid.filaActual()});
    }
}

// With the largest price and the longest name.
TEST(ListaArticulos, NadaSeSaleDeSuSitio) {
  MesaDeArticulos t;
  const QString largo(50, u'N');
  t.sql(u"update PLUSES set PRECIO_00=2000000000, PRECIO_27=2000000000, NOMPLU=? where CODPLU=10"_s,
        largo);
  auto* v = t.abrir(u"BrowPLUs"_s);
  for (const auto& [lista, campo] : {std::pair{u"Grid", u"PRECIO_00"}, {u"GrdPre", u"P0"}}) {
    auto& p = t.lista(v, lista);
    const QModelIndex i = p.modelo()->index(p.filaActual(), p.modelo()->columna(campo));
    EXPECT_LE(p.vista()->sizeHintForIndex(i).width(), p.vista()->columnWidth(i.column()))
        << i.data().toString().toStdString();
  }
  auto& precios = t.lista(v, u"GrdPre");
  EXPECT_LE(precios.vista()->horizontalHeader()->length(), precios.vista()->viewport()->width());
  auto* nombre = t.control<QLabel>(v, u"articulo");
  EXPECT_TRUE(nombre->toolTip().endsWith(largo));
  for (const QString& palabra : nombre->text().split(u' '))
    EXPECT_LE(nombre->fontMetrics().horizontalAdvance(palabra), nombre->width());
  t.tecla(Qt::Key_Down);
  EXPECT_EQ(nombre->text(), u"0000020  Artículo 20");
  EXPECT_TRUE(nombre->toolTip().isEmpty());
}

// Articles of the system are neither copied, moved nor deleted, and each key says so.
TEST(ListaArticulos, LosDelSistemaNoSeTocanYSeDice) {
  MesaDeArticulos t;
  auto* v = t.abrir(PuertaBrowPLUs{});
  for (const Qt::Key k : {Qt::Key_F6, Qt::Key_F7, Qt::Key_Delete}) {
    t.lista(v).irA(0);
    t.lista(v).vista()->setFocus();
    v->tira().quitar();
    t.tecla(k);
    EXPECT_EQ(v->tira().texto(), u"Los PLUs 0000001 y 0000002 no son modificables") << k;
  }
}

}  // namespace tarvo::prueba
