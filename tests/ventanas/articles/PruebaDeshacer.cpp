// Ctrl+Z restores edited cells in the list, in the prices beside it and in the tree.
#include <QClipboard>

#include "MesaDeArticulos.h"
#include "articles/Lotes.h"

namespace tarvo::prueba {

namespace {

const QString kDiez =
    u"select CODPLU, NOMPLU, PRECIO_00, PRECIO_22, DEPTO, FORMATO from PLUSES where SECCION=1 and "
    u"NOMPLU like 'Art*10' or CODPLU in (10, 11) order by CODPLU"_s;

void deshacer(MesaDeArticulos& t, ventanas::Ventana* v) {
  v->activateWindow();
  ASSERT_TRUE(t.activa(v));
  t.lista(v).vista()->setFocus();
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
}

}  // namespace

// Undoes each cell, even if its row is no longer listed; the report names the change.
TEST(DeshacerCeldas, VuelvenUnaAUna) {
  MesaDeArticulos t;
  const QString antes = t.leer(kDiez);
  auto* v = t.abrir(PuertaBrowPLUs{});
  auto& grid = t.lista(v);
  auto& precios = t.lista(v, u"GrdPre");
  auto* accion = v->findChild<QAction*>(u"Deshacer"_s);
  EXPECT_FALSE(accion->isEnabled());
  const struct {
    const char16_t *campo, *texto, *pista;
  } casos[] = {{u"NOMPLU", u"Un nombre que no cabe en veinte", u"Nombre, que era «Artículo 10»"},
               {u"PRECIO_00", u"2,35", u"Precio, que era «1,00»"},
               {u"FORMATO", u"3", u"Formato, que era «01»"},
               {u"CODPLU", u"11", u"Código, que era «0000010»"},
               {u"DEPTO", u"7", u"Dep., que era «01»"}};
  for (const auto& c : casos) {
    grid.irA(2);
    t.abrirCelda(grid, QString::fromUtf16(c.campo));
    t.escribir(QString::fromUtf16(c.texto));
    t.tecla(Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_TRUE(accion->toolTip().contains(QString::fromUtf16(c.pista)))
        << accion->toolTip().toStdString();
  }
  grid.irA(2);
  precios.vista()->setFocus();
  precios.vista()->setCurrentIndex(precios.modelo()->index(2, 3));
  t.escribir(u"9"_s);
  t.tecla(Qt::Key_Return);
  EXPECT_TRUE(accion->toolTip().contains(u"Hasta 2, tarifa 3, que era «0,00»"))
      << accion->toolTip().toStdString();
  EXPECT_EQ(t.leer(kDiez), u"11 Un nombre que no cabe en veinte 235 900 7 3");
  t.control(v, u"Filtro")->setText(u"90"_s);  // hides the article
  for (int i = 0; i < 6; ++i) deshacer(t, v);
  EXPECT_EQ(t.leer(kDiez), antes);
  EXPECT_FALSE(accion->isEnabled());
  EXPECT_EQ(t.cruces(), u"11 1 1 | 11 4 1 | 20 1 0") << "sent to the groups again";
}

// With nothing to undo here, it says where the change of many articles is undone. A window that is
// opened next takes the hint away.
TEST(DeshacerCeldas, DiceDondeSeDeshaceElCambioDeMuchos) {
  MesaDeArticulos t;
  auto* v = t.abrir(PuertaBrowPLUs{});
  deshacer(t, v);
  EXPECT_EQ(v->tira().texto(), u"Nada que deshacer");
  Lotes lotes(t.catalogo);
  const qint64 lote = bien(lotes.empezar(u"CambioLote"_s));
  bien(lotes.guardar(lote, {1, 10}));
  t.sql(u"update PLUSES set PRECIO_00=110 where SECCION=1 and CODPLU=10"_s);
  bien(lotes.acabar(lote));
  v->recorrido()->refrescar();  // as the window of the change does
  deshacer(t, v);
  EXPECT_TRUE(v->tira().texto().contains(u"se deshace en su ventana (F12), con «Deshacer»"))
      << v->tira().texto().toStdString();
  t.lista(v).irA(2);
  t.lista(v).vista()->setFocus();
  t.tecla(Qt::Key_F4);
  ASSERT_TRUE(t.cargada(u"xEditPLU#1.10"_s));
  EXPECT_FALSE(v->tira().isVisible());
}

// A later change from elsewhere isn't overwritten, and that is reported. When it is of other
// fields, the older one is undone only after a question.
TEST(DeshacerCeldas, LoQueOtroCambioSeQueda) {
  const QString nombre = u"update PLUSES set NOMPLU='Otro' where SECCION=1 and CODPLU=10"_s;
  const struct {
    QString otro, responde;
    int precio;
    const char16_t* dice;
    bool queda = false;  // on the stack
  } casos[] = {
      {nombre, u"Acepto"_s, 100, u"Deshecho"},
      {nombre, u"Cancelo"_s, 235, u"", true},
      {u"update PLUSES set NOMPLU='Otro' where SECCION=1 and CODPLU=20"_s, {}, 100, u"Deshecho"},
      {u"update PLUSES set PRECIO_00=777 where SECCION=1 and CODPLU=10"_s,
       {},
       777,
       u"Otra ventana ha cambiado lo mismo después"},
      {u"delete from PLUSES where SECCION=1 and CODPLU=10"_s, {}, 0, u"El artículo ya no existe"}};
  for (const auto& c : casos) {
    MesaDeArticulos t;
    auto* v = t.abrir(PuertaBrowPLUs{});
    t.abrirCelda(t.lista(v), u"PRECIO_00"_s);
    t.escribir(u"2,35"_s);
    t.tecla(Qt::Key_Return);
    t.sql(c.otro);
    if (!c.responde.isEmpty()) t.responder(c.responde);
    deshacer(t, v);
    EXPECT_EQ(t.textoModal.startsWith(u"Esto no es lo último: «Precio, que era «1,00»»"_s),
              !c.responde.isEmpty())
        << t.textoModal.toStdString();
    EXPECT_TRUE(v->tira().texto().startsWith(QString::fromUtf16(c.dice)))
        << v->tira().texto().toStdString();
    EXPECT_EQ(
        bien(t.db->uno(u"select PRECIO_00 from PLUSES where SECCION=1 and CODPLU=10"_s)).entero(),
        c.precio);
    EXPECT_EQ(v->findChild<QAction*>(u"Deshacer"_s)->isEnabled(), c.queda);
  }
}

// Cells and whole articles share one undo order, the last first.
TEST(DeshacerCeldas, ConLoBorradoEnUnSoloOrden) {
  MesaDeArticulos t;
  auto* v = t.abrir(PuertaBrowPLUs{});
  auto& grid = t.lista(v);
  t.abrirCelda(grid, u"PRECIO_00"_s);
  t.escribir(u"1,20"_s);
  t.tecla(Qt::Key_Return);
  const auto precio = [&] {
    return t.leer(u"select PRECIO_00 from PLUSES where SECCION=1 and CODPLU=10"_s);
  };
  QApplication::processEvents();
  EXPECT_EQ(t.enMano(grid), 20) << "Return moves down";
  grid.irA(2);
  t.responder(u"Acepto"_s);
  t.tecla(Qt::Key_Delete);
  ASSERT_TRUE(esperar([&] { return grid.filas() == 11; }));
  deshacer(t, v);
  EXPECT_EQ(precio(), u"120");
  deshacer(t, v);
  EXPECT_EQ(precio(), u"100");
  EXPECT_EQ(t.leer(u"select count(*) from LoteArticulos"_s), u"0");
}

// Pasting a column of prices from another program, and filling one price down into the selected
// rows, are one undo step each. If a line is refused, none is written and the refused ones are
// named.
TEST(DeshacerCeldas, UnaColumnaDePrecios) {
  const struct {
    const char16_t* pegado;  // empty: the price is filled down
    const char16_t *queda, *dice;
  } casos[] = {{u"1,10\r\n2,20\tTomate\r\n3,30\r\n", u"110 | 220 | 330 | 400", u""},
               {u"1,10\nmucho\n3,30", u"100 | 200 | 300 | 400",
                u"No se ha escrito nada: 1 línea no vale. Línea 2: El precio «mucho»"},
               {u"1,105\n2,20\n-3", u"100 | 200 | 300 | 400",
                u"No se ha escrito nada: 2 líneas no valen. Línea 1: El precio «1,105» tiene"},
               {u"", u"100 | 100 | 100 | 400", u""}};
  const QString precios =
      u"select PRECIO_00 from PLUSES where SECCION=1 and CODPLU between 10 and 40 order by CODPLU"_s;
  for (const auto& c : casos) {
    MesaDeArticulos t;
    auto* v = t.abrir(PuertaBrowPLUs{});
    auto& grid = t.lista(v);
    grid.vista()->setFocus();
    grid.vista()->setCurrentIndex(grid.modelo()->index(2, grid.modelo()->columna(u"PRECIO_00")));
    if (*c.pegado) {
      QApplication::clipboard()->setText(QString::fromUtf16(c.pegado));
      t.tecla(Qt::Key_V, Qt::ControlModifier);
    } else {
      for (int i = 0; i < 2; ++i) t.tecla(Qt::Key_Down, Qt::ShiftModifier);
      t.tecla(Qt::Key_D, Qt::ControlModifier);
    }
    EXPECT_EQ(t.leer(precios), QString::fromUtf16(c.queda));
    const bool dicho = v->tira().texto().startsWith(QString::fromUtf16(c.dice));
    EXPECT_TRUE(!*c.dice || dicho) << v->tira().texto().toStdString();
    if (*c.dice) {
      EXPECT_FALSE(v->findChild<QAction*>(u"Deshacer"_s)->isEnabled());
      EXPECT_TRUE(bien(t.catalogo.seccionesQueDifieren()).empty());
    }
    deshacer(t, v);
    EXPECT_EQ(grid.findChild<QLabel*>(u"aviso"_s)->text(), u"") << "nothing is written any more";
    EXPECT_EQ(t.leer(precios), u"100 | 200 | 300 | 400");
    EXPECT_FALSE(v->findChild<QAction*>(u"Deshacer"_s)->isEnabled());
  }
}

// A column pasted over names is asked about before it is written; Cancelar is the default.
TEST(DeshacerCeldas, PegarSobreNombresSePregunta) {
  const QString nombres =
      u"select NOMPLU from PLUSES where SECCION=1 and CODPLU in (10, 20) order by CODPLU"_s;
  for (const bool si : {false, true}) {
    MesaDeArticulos t;
    auto& grid = t.lista(t.abrir(PuertaBrowPLUs{}));
    grid.vista()->setFocus();
    grid.vista()->setCurrentIndex(grid.modelo()->index(2, grid.modelo()->columna(u"NOMPLU")));
    QApplication::clipboard()->setText(u"1,11\n2,22"_s);
    t.alAbrirse([si](QWidget* w) {
      si ? w->findChild<QPushButton*>(u"Acepto"_s)->click()
         : QTest::keyClick(w->focusWidget(), Qt::Key_Return);
    });
    t.tecla(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(t.textoModal,
              u"Va a escribir sobre 2 casillas de «Nombre» que ya tienen algo: la primera pasa de "
              u"«Artículo 10» a «1,11». ¿Seguro?");
    EXPECT_EQ(t.leer(nombres), si ? u"1,11 | 2,22" : u"Artículo 10 | Artículo 20");
  }
}

// What a refused paste reported is over once another one was written.
TEST(DeshacerCeldas, LoPegadoBienQuitaLoDicho) {
  MesaDeArticulos t;
  auto* v = t.abrir(PuertaBrowPLUs{});
  auto& grid = t.lista(v);
  grid.vista()->setFocus();
  grid.vista()->setCurrentIndex(grid.modelo()->index(2, grid.modelo()->columna(u"PRECIO_00")));
  for (const bool bien : {false, true}) {
    QApplication::clipboard()->setText(bien ? u"1,10\n2,20"_s : u"1,10\nmucho"_s);
    t.tecla(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(v->tira().isHidden(), bien) << v->tira().texto().toStdString();
  }
}

// The same in the prices beside the list: they show what is stored.
TEST(DeshacerCeldas, UnaTarifaMalaNoDejaNinguna) {
  MesaDeArticulos t;
  auto* v = t.abrir(PuertaBrowPLUs{});
  auto& p = t.lista(v, u"GrdPre");
  p.vista()->setFocus();
  p.vista()->setCurrentIndex(p.modelo()->index(0, p.modelo()->columna(u"P0")));
  QApplication::clipboard()->setText(u"7\n8\nnada"_s);
  t.tecla(Qt::Key_V, Qt::ControlModifier);
  EXPECT_TRUE(v->tira().texto().contains(u"Línea 3: El precio «nada»"));
  EXPECT_EQ(t.leer(u"select PRECIO_00, PRECIO_01 from PLUSES where SECCION=1 and CODPLU=10"_s),
            u"100 0");
  EXPECT_EQ(p.texto(0, u"P0") + u' ' + p.texto(1, u"P0"), u"1,00 0,00");
  EXPECT_EQ(t.leer(u"select count(*) from HistoriaPrecios"_s), u"0");
  QApplication::clipboard()->setText(u"1,00"_s);
  t.tecla(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(p.findChild<QLabel*>(u"aviso"_s)->text(), u"")
      << "nothing was written, nothing is reported";
}

// What no longer passes the filter stays in sight until it is applied again; then its neighbour is
// in hand.
TEST(ListaArticulos, LoQueSaleDelFiltroSeVe) {
  MesaDeArticulos t;
  auto* v = t.abrir(PuertaBrowPLUs{});
  auto& grid = t.lista(v);
  t.control(v, u"Filtro")->setText(u"Artículo"_s);
  grid.irA(4);
  t.abrirCelda(grid, u"NOMPLU"_s);
  t.escribir(u"Pera"_s);
  t.tecla(Qt::Key_Return);
  QApplication::processEvents();
  EXPECT_EQ(grid.filas(), 10);
  EXPECT_EQ(grid.texto(4, u"NOMPLU") + u' ' + grid.texto(4, u"PRECIO_00"), u"Pera 5,00");
  grid.irA(4);
  grid.vista()->setFocus();
  t.tecla(Qt::Key_F5);
  EXPECT_EQ(grid.filas(), 9);
  EXPECT_EQ(t.enMano(grid), 60);
}

// Where space is short, unit, department and format are hidden before the price.
TEST(ListaArticulos, ElPrecioSeQueda) {
  const std::pair<int, const char16_t*> casos[] = {
      {1400, u"CODPLU NOMPLU PRECIO_00 UN DEPTO FORMATO"}, {800, u"CODPLU NOMPLU PRECIO_00"}};
  for (const auto& [ancho, quedan] : casos) {
    MesaDeArticulos t;
    auto* v = t.abrir(PuertaBrowPLUs{});
    v->resize(ancho, 600);
    QApplication::processEvents();
    auto& grid = t.lista(v);
    QStringList vistas;
    int ocupado = 0;
    for (const auto& c : grid.modelo()->columnas()) {
      const int i = grid.modelo()->columna(c.campo);
      if (grid.vista()->isColumnHidden(i)) continue;
      vistas << (c.campo.startsWith(u"switch") ? u"UN"_s : c.campo);
      ocupado += grid.vista()->columnWidth(i);
    }
    EXPECT_EQ(vistas.join(u' '), QString::fromUtf16(quedan));
    EXPECT_LE(ocupado, grid.vista()->viewport()->width());
  }
}

// Typing on an editable cell edits it; elsewhere it searches.
TEST(DeshacerCeldas, TeclearEscribeDondeSePuede) {
  const struct {
    const char16_t *campo, *tecla;
    bool escribe;
  } casos[] = {{u"PRECIO_00", u"7", true},
               {u"NOMPLU", u"x", true},
               {u"CODPLU", u"0000050", false},
               {u"switch(CADA=0,'K',CADA=1,'g',true,'U')", u"U", false}};
  for (const auto& c : casos) {
    MesaDeArticulos t;
    t.sql(u"update PLUSES set CADA=2 where SECCION=1 and CODPLU=50"_s);
    auto* v = t.abrir(PuertaBrowPLUs{});
    v->resize(1600, 700);  // room for all columns
    QApplication::processEvents();
    auto& grid = t.lista(v);
    grid.vista()->setFocus();
    grid.vista()->setCurrentIndex(grid.modelo()->index(
        grid.filaActual(), grid.modelo()->columna(QString::fromUtf16(c.campo))));
    t.escribir(QString::fromUtf16(c.tecla));
    EXPECT_EQ(grid.editando(), c.escribe);
    EXPECT_TRUE(esperar([&] { return t.enMano(grid) == (c.escribe ? 10 : 50); }, 5'000));
  }
}

// A price of 0, and one that changes by more than half, are stored and reported.
TEST(DeshacerCeldas, UnPrecioRaroSeDice) {
  const struct {
    const char16_t *texto, *dice;
  } casos[] = {{u"1,50", u""},
               {u"1,51", u"El precio pasa de 1,00 a 1,51, más de la mitad"},
               {u"0,50", u""},
               {u"0,49", u"El precio pasa de 1,00 a 0,49, 2 veces menos"},
               {u"0,1", u"El precio pasa de 1,00 a 0,10, 10 veces menos"},
               {u"2,50", u"El precio pasa de 1,00 a 2,50, 2,5 veces el de antes"},
               {u"299", u"El precio pasa de 1,00 a 299,00, 299 veces el de antes"},
               {u"0", u"El precio era 1,00 y ahora es 0"},
               {u"12000", u"El precio 12.000,00 pasa de 9.999,99"}};
  for (const bool aLado : {false, true})
    for (const auto& c : casos) {
      MesaDeArticulos t;
      auto* v = t.abrir(PuertaBrowPLUs{});
      auto& p = t.lista(v, aLado ? u"GrdPre" : u"Grid");
      p.vista()->setFocus();
      p.vista()->setCurrentIndex(p.modelo()->index(
          std::max(0, p.filaActual()), p.modelo()->columna(aLado ? u"P0" : u"PRECIO_00")));
      const QString texto = QString::fromUtf16(c.texto);
      t.escribir(texto.left(1));
      if (texto.size() > 1) t.escribir(texto.mid(1));
      t.tecla(Qt::Key_Return);
      EXPECT_EQ(v->tira().isHidden(), *c.dice == 0) << texto.toStdString();
      if (*c.dice) {
        EXPECT_TRUE(v->tira().texto().startsWith(u"Artículo 10, P. Base, tarifa 1: "_s +
                                                 QString::fromUtf16(c.dice)))
            << v->tira().texto().toStdString();
      }
    }
}

// An emptied price stays in its open cell with a reason, and what was stored stays.
TEST(DeshacerCeldas, UnPrecioVacioNoSeEscribe) {
  for (const auto& [lista, campo] : {std::pair{u"Grid", u"PRECIO_00"}, {u"GrdPre", u"P0"}})
    for (const QString& texto : {QString(), u" "_s}) {
      MesaDeArticulos t;
      auto* v = t.abrir(PuertaBrowPLUs{});
      auto& p = t.lista(v, lista);
      if (p.filaActual() < 0) p.irA(0);
      t.abrirCelda(p, QString::fromUtf16(campo));
      t.tecla(Qt::Key_Delete);
      t.escribir(texto);
      t.tecla(Qt::Key_Return);
      EXPECT_TRUE(p.editando());
      EXPECT_TRUE(v->tira().texto().startsWith(u"El precio no puede quedar vacío"))
          << v->tira().texto().toStdString();
      t.tecla(Qt::Key_Escape);
      EXPECT_EQ(t.leer(u"select PRECIO_00 from PLUSES where SECCION=1 and CODPLU=10"_s), u"100");
      EXPECT_EQ(t.leer(u"select count(*) from HistoriaPrecios"_s), u"0");
    }
}

namespace {

const QString kNombres = u"select NOMSEC from SECCS union all select NomDep from DEPTS"_s;

void renombrar(MesaDeArticulos& t, ventanas::Ventana* v, const QString& nombre) {
  t.control<QTreeWidget>(v, u"Arbol")->setFocus();
  t.tecla(Qt::Key_F2);
  t.escribir(nombre);
  t.tecla(Qt::Key_Return);
  ASSERT_TRUE(esperar([&] { return t.leer(kNombres).contains(nombre); }));
  for (int i = 0; i < 3; ++i) QApplication::processEvents();  // the tree is read again
}

}  // namespace

TEST(DeshacerArbol, LosNombresVuelven) {
  MesaDeArticulos t;
  const QString antes = t.leer(kNombres);
  auto* v = t.abrir(PuertaBrowGrupos{});
  auto* arbol = t.control<QTreeWidget>(v, u"Arbol");
  arbol->setFocus();
  t.tecla(Qt::Key_F2);
  t.escribir(u" "_s);
  t.tecla(Qt::Key_Return);
  ASSERT_TRUE(esperar([&] { return !v->tira().isHidden(); }));
  for (int i = 0; i < 3; ++i) QApplication::processEvents();
  renombrar(t, v, u"Tienda"_s);
  EXPECT_TRUE(v->tira().isHidden()) << "the refusal is over";
  t.tecla(Qt::Key_Down);
  renombrar(t, v, u"Setas"_s);
  EXPECT_EQ(t.leer(kNombres), u"Tienda | Carne | Setas");
  EXPECT_TRUE(v->findChild<QAction*>(u"Deshacer"_s)
                  ->toolTip()
                  .contains(u"Departamento 01 de la sección 001, que se llamaba «Fruta»"));
  for (int i = 0; i < 2; ++i) {
    arbol->setFocus();
    t.tecla(Qt::Key_Z, Qt::ControlModifier);
  }
  EXPECT_EQ(t.leer(kNombres), antes);
  EXPECT_EQ(arbol->currentItem()->text(0), u"SECCIÓN ÚNICA");
}

// What was made just now goes with its name, unless something is in it by then.
TEST(DeshacerArbol, LoNuevoSeQuitaEntero) {
  for (const bool seccion : {true, false})
    for (const bool conCosas : {false, true}) {
      MesaDeArticulos t;
      const QString antes = t.leer(kNombres);
      auto* v = t.abrir(PuertaBrowGrupos{});
      t.tecla(Qt::Key_Insert, seccion ? Qt::ControlModifier : Qt::NoModifier);
      t.escribir(u"Quesos"_s);
      t.tecla(Qt::Key_Return);
      auto* accion = v->findChild<QAction*>(u"Deshacer"_s);
      ASSERT_TRUE(esperar([&] { return accion->isEnabled(); }));
      EXPECT_TRUE(t.leer(kNombres).contains(u"Quesos"));
      if (conCosas && seccion) t.sql(u"insert into PLUSES (SECCION, CODPLU) values (3, 10)"_s);
      if (conCosas && !seccion) t.sql(u"update PLUSES set DEPTO=2 where CODPLU=30"_s);
      t.control<QTreeWidget>(v, u"Arbol")->setFocus();
      t.tecla(Qt::Key_Z, Qt::ControlModifier);
      EXPECT_EQ(t.leer(kNombres) == antes, !conCosas) << seccion;
      EXPECT_TRUE(conCosas ? v->tira().texto().startsWith(u"Ya no está recién")
                           : v->tira().texto().endsWith(u" se ha quitado."))
          << v->tira().texto().toStdString();
      EXPECT_FALSE(accion->isEnabled());
    }
}

// Escape while naming a new item removes it; Return keeps the suggested name.
TEST(DeshacerArbol, EscapeNoDejaUnoNuevo) {
  for (const bool seccion : {false, true})
    for (const bool escape : {true, false}) {
      MesaDeArticulos t;
      const QString antes = t.leer(kNombres);
      auto* v = t.abrir(PuertaBrowGrupos{});
      t.tecla(Qt::Key_Insert, seccion ? Qt::ControlModifier : Qt::NoModifier);
      t.tecla(escape ? Qt::Key_Escape : Qt::Key_Return);
      const QString nuevo = seccion ? u"Nueva Sección"_s : u"Nuevo Departamento"_s;
      EXPECT_TRUE(esperar([&] { return v->tira().isHidden() != escape; }, 5'000));
      EXPECT_TRUE(v->isVisible());
      EXPECT_EQ(t.leer(kNombres).contains(nuevo), !escape);
      if (escape) {
        EXPECT_EQ(t.leer(kNombres), antes);
      }
    }
}

// The list starts at the first article of its department, also when it is opened again for another
// one; so does a section without the system articles.
TEST(ListaArticulos, EmpiezaPorElPrimero) {
  MesaDeArticulos t;
  t.sql(u"insert into DEPTS (SECCION, NUMDEP, NomDep) values (1, 2, 'Verdura')"_s);
  t.sql(u"update PLUSES set DEPTO=2 where SECCION=1 and CODPLU>50"_s);
  t.articulo(2, 30, u"Cinta"_s);
  t.articulo(2, 40, u"Panceta"_s);
  const struct {
    int seccion, departamento;
    qint64 codigo;
  } casos[] = {{1, 1, 10}, {1, 2, 60}, {1, 0, 10}, {2, 0, 20}, {1, 2, 60}};
  for (const auto& c : casos) {
    auto* v = t.abrir(PuertaBrowPLUs{c.seccion, c.departamento});
    EXPECT_EQ(t.enMano(t.lista(v)), c.codigo) << c.seccion << ' ' << c.departamento;
    t.lista(v).irA(t.lista(v).filas() - 1);
  }
}

}  // namespace tarvo::prueba
