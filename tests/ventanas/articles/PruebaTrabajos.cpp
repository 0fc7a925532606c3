// Jobs of a user in the catalogue, by keys.

#include <QDir>

#include "MesaDeArticulos.h"
#include "articles/Lotes.h"
#include "core/ventanas/marco/TiraTrabajo.h"

namespace tarvo::prueba {

namespace {

void ponerTexto(QLineEdit* campo, const QString& texto) {
  campo->setFocus();
  campo->selectAll();
  QTest::keyClicks(campo, texto);
}

}  // namespace

// From the tree: a department, its name, its list, the complete editor, a price.
TEST(Trabajos, UnArticuloNuevoDesdeNada) {
  MesaDeArticulos t;
  auto* arbol = t.abrir(PuertaBrowGrupos{});
  t.tecla(Qt::Key_Insert);
  t.escribir(u"Setas"_s);
  t.tecla(Qt::Key_Return);
  ASSERT_TRUE(
      esperar([&] { return t.leer(u"select NomDep from DEPTS where NUMDEP=2"_s) == u"Setas"; }));
  t.control<QTreeWidget>(arbol, u"Arbol")->setFocus();
  t.tecla(Qt::Key_F4);
  auto* v = t.cargada(u"BrowPLUs"_s);
  auto& grid = t.lista(v);
  EXPECT_EQ(grid.filas(), 0);
  t.tecla(Qt::Key_Insert, Qt::ControlModifier);
  auto* e = t.cargada(u"xEditPLU#1.0"_s);
  t.escribir(u"123456789"_s);  // a full field pushes the first digits out
  EXPECT_EQ(t.control(e, u"txCod")->text(), u"3456789");
  ponerTexto(t.control(e, u"txCod"), u"77"_s);
  t.tecla(Qt::Key_Tab);
  EXPECT_EQ(t.control(e, u"txCod")->text(), u"0000077");
  t.escribir(u"Niscalo"_s);
  auto& precios = t.lista(e, u"GrdPre");
  precios.vista()->setFocus();
  QTest::keyClicks(precios.vista(), u"1"_s);
  t.escribir(u"2,5"_s);
  t.tecla(Qt::Key_Return);
  ponerTexto(t.control(e, u"txHasta1"), u"1,5"_s);
  t.tecla(Qt::Key_Return);
  EXPECT_EQ(e->focusWidget(), t.control(e, u"txHasta2")) << "Return goes on, and saves nothing";
  t.control<QPushButton>(e, u"Guardar")->click();
  ASSERT_TRUE(esperar([&] { return grid.filas() == 1; })) << t.textoModal.toStdString();
  EXPECT_EQ(
      t.leer(
          u"select CODPLU, NOMPLU, DEPTO, PRECIO_00, HASTA_1, Tara, isnull(CodBarExt) from PLUSES where DEPTO=2"_s),
      u"77 Niscalo 2 1250 1500 1 1");
  EXPECT_EQ(t.enMano(grid), 77);
  EXPECT_EQ(t.leer(u"select CODPLU, ANTES, AHORA, QUIEN, VENTANA from HistoriaPrecios"_s),
            u"77 0 1250 ana@caja xEditPLU");
  EXPECT_EQ(t.leer(u"select count(*) from MovsAlm where CODIGO=77"_s), u"1");
  EXPECT_EQ(t.cambiadas(), std::vector<int>{1});
}

TEST(Trabajos, UnCodigoCambiadoEnLaLista) {
  MesaDeArticulos t;
  auto* v = t.abrir(u"BrowPLUs"_s);
  auto& grid = t.lista(v);
  ASSERT_EQ(t.enMano(grid), 10);
  t.abrirCelda(grid, u"CODPLU"_s);
  t.escribir(u"20"_s);
  t.tecla(Qt::Key_Return);
  EXPECT_TRUE(grid.editando());
  EXPECT_EQ(v->tira().texto(), u"El código de registro ya existe: No debe duplicarse");
  t.escribir(u"9"_s);  // after it: 209
  t.tecla(Qt::Key_Return);
  ASSERT_TRUE(
      esperar([&] { return t.enMano(grid) == 209 && grid.filaActual() == grid.filas() - 1; }));
  EXPECT_EQ(t.cruces(), u"10 1 1 | 10 4 1 | 20 1 0");
}

// Each cell, the text typed, and its result.
TEST(Trabajos, LasCeldasSeComprueban) {
  MesaDeArticulos t;
  auto* v = t.abrir(u"BrowPLUs"_s);
  v->resize(1600, 700);  // room for all columns
  QApplication::processEvents();
  auto& grid = t.lista(v);
  const struct {
    const char16_t *campo, *texto;
    const char* queda;     // of the row; empty: the editor stays open
    const char16_t* dice;  // text of the strip
  } casos[] = {
      {u"NOMPLU", u"Un nombre de mas de veinte", "Un nombre de mas de veinte 100 1 1", u""},
      {u"NOMPLU", u"Mas de cincuenta letras no caben en el nombre de un PLU", "",
       u"El nombre tiene 55 letras, y caben 50."},
      {u"PRECIO_00", u"2,35", "Un nombre de mas de veinte 235 1 1", u""},
      {u"PRECIO_00", u"1,2,3", "",
       u"El precio «1,2,3» no es un importe: escriba, por ejemplo, 12,50."},
      {u"PRECIO_00", u"2,999", "",
       u"El precio «2,999» tiene más decimales de los que admite la moneda (2): escríbalo "
       u"redondeado."},
      {u"PRECIO_00", u"1.239", "",
       u"El precio «1.239» se puede leer de dos modos: escriba 1239 o 1,24."},
      {u"PRECIO_00", u"2'99", "",
       u"El precio «2'99» no es un importe: escriba, por ejemplo, 12,50."},
      {u"PRECIO_00", u"2.40", "Un nombre de mas de veinte 240 1 1", u""},
      {u"PRECIO_00", u"2,35", "Un nombre de mas de veinte 235 1 1", u""},
      {u"DEPTO", u"41", "",
       u"El valor entrado es incorrecto: Departamento. El departamento va del 1 al 40, y se ha "
       u"dado el 41."},
      {u"DEPTO", u"100", "",
       u"El valor entrado es incorrecto: Departamento. El departamento va del 1 al 40, y se ha "
       u"dado el 100."},
      {u"DEPTO", u"40", "Un nombre de mas de veinte 235 40 1",
       u"La sección no tiene el departamento 40: créelo en el árbol o elija otro"},
      {u"DEPTO", u"1", "Un nombre de mas de veinte 235 1 1", u""},
      {u"FORMATO", u"0", "",
       u"El valor entrado es incorrecto: Formato Etiquetas. El formato de etiqueta va del 1 al 20, "
       u"y se ha dado el 0."},
      {u"FORMATO", u"100", "",
       u"El valor entrado es incorrecto: Formato Etiquetas. El formato de etiqueta va del 1 al 20, "
       u"y se ha dado el 100."},
      {u"FORMATO", u"20", "Un nombre de mas de veinte 235 1 20", u""},
      {u"CODPLU", u"2", "", u"El valor entrado es incorrecto: Código PLU"},
      {u"CODPLU", u"12345678", "", u"El valor entrado es incorrecto: Código PLU"}};
  for (const auto& c : casos) {
    QApplication::processEvents();
    grid.irA(2);
    v->tira().quitar();
    t.abrirCelda(grid, QString::fromUtf16(c.campo));
    t.escribir(QString::fromUtf16(c.texto));
    t.tecla(Qt::Key_Return);
    EXPECT_EQ(grid.editando(), *c.queda == 0) << QString::fromUtf16(c.texto).toStdString();
    if (*c.dice) {
      EXPECT_EQ(v->tira().texto().toStdString(), QString::fromUtf16(c.dice).toStdString());
    }
    if (*c.queda) {
      EXPECT_EQ(
          t.leer(
               u"select NOMPLU, PRECIO_00, DEPTO, FORMATO from PLUSES where SECCION=1 and CODPLU=10"_s)
              .toStdString(),
          c.queda);
    }
    if (grid.editando()) t.tecla(Qt::Key_Escape);
    EXPECT_TRUE(v->isVisible()) << "that Escape only closes the cell editor";
  }
  EXPECT_EQ(t.cruces(), u"20 1 0");
  // In a system article the cell reverts silently, since nothing was meant.
  grid.irA(0);
  t.abrirCelda(grid, u"DEPTO"_s);
  v->tira().quitar();
  t.escribir(u"5"_s);
  t.tecla(Qt::Key_Return);
  EXPECT_FALSE(grid.editando());
  EXPECT_TRUE(v->tira().isHidden());
  EXPECT_EQ(grid.texto(0, u"DEPTO"), u"");
}

TEST(Trabajos, LosPreciosDeLaParrilla) {
  MesaDeArticulos t;
  auto* v = t.abrir(u"BrowPLUs"_s);
  auto& grid = t.lista(v);
  auto& precios = t.lista(v, u"GrdPre");
  precios.vista()->setFocus();
  precios.vista()->setCurrentIndex(precios.modelo()->index(2, 3));
  t.tecla(Qt::Key_Return);
  EXPECT_EQ(t.enMano(grid), 20) << "Enter moves to the next article";
  EXPECT_EQ(t.cruces(), u"10 1 0 | 20 1 0") << "nothing was changed";
  t.escribir(u"7"_s);
  t.escribir(u",25"_s);
  t.tecla(Qt::Key_Return);
  ASSERT_TRUE(esperar([&] { return t.enMano(grid) == 30; }));
  EXPECT_EQ(t.leer(u"select PRECIO_22 from PLUSES where SECCION=1 and CODPLU=20"_s), u"725");
  EXPECT_EQ(t.cruces(), u"10 1 0");
  t.tecla(Qt::Key_PageUp);
  EXPECT_EQ(t.enMano(grid), 20);
  EXPECT_EQ(precios.texto(2, u"P2"), u"7,25");
  EXPECT_EQ(precios.vista()->currentIndex().row(), 2) << "the same cell remains current";
  for (int i = 0; i < 5; ++i) t.tecla(Qt::Key_PageUp);
  EXPECT_EQ(grid.filaActual(), 0) << "it stops at the end";
}

TEST(Trabajos, BorrarYDeshacer) {
  MesaDeArticulos t;
  t.existencias({.codigo = 20, .inicial = 5000});
  auto* v = t.abrir(u"BrowPLUs"_s);
  auto& grid = t.lista(v);
  const QString filas = u"select * from PLUSES order by SECCION, CODPLU"_s;
  const QString antes = t.leer(filas);
  grid.vista()->selectAll();  // the system articles too
  grid.vista()->setFocus();
  t.responder(u"Acepto"_s);
  t.tecla(Qt::Key_Delete);
  ASSERT_TRUE(esperar([&] { return grid.filas() == 2; }));
  EXPECT_EQ(t.textoModal,
            u"Va a borrar 10 registro/s de PLU: ¿SEGURO?\n0000010  Artículo 10\n0000020  Artículo "
            u"20\n0000030  Artículo 30\ny 7 más");
  EXPECT_EQ(v->tira().texto(), u"10 artículos borrados. Ctrl+Z lo deshace.");
  EXPECT_EQ(t.leer(u"select count(*) from [Cross] where borra<>0"_s), u"20")
      << "groups of kinds 1 and 4";
  v->activateWindow();
  ASSERT_TRUE(t.activa(v));
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  ASSERT_TRUE(esperar([&] { return grid.filas() == 12; })) << v->tira().texto().toStdString();
  EXPECT_EQ(t.leer(filas), antes);
  EXPECT_EQ(t.leer(u"select Inicial from MovsAlm"_s), u"5000");
  EXPECT_EQ(t.leer(u"select count(*) from HistoriaPrecios"_s), u"0") << "nobody set a price";
  // One article is deleted, and the pointer moves to the next.
  grid.irA(grid.filaDe(
      bien(t.db->uno(u"select rowid from PLUSES where SECCION=1 and CODPLU=20"_s)).entero()));
  t.responder(u"Acepto"_s);
  t.tecla(Qt::Key_Delete);
  ASSERT_TRUE(esperar([&] { return grid.filas() == 11; }));
  EXPECT_EQ(t.enMano(grid), 30);
  EXPECT_EQ(t.textoModal, u"Va a borrar 1 registro/s de PLU: ¿SEGURO?\n0000020  Artículo 20");
}

TEST(Trabajos, ElBorradoQueSeParaDiceCuantosQuedan) {
  MesaDeArticulos t;
  for (int c = 1001; c <= 2000; ++c) t.articulo(1, c, u"Artículo %1"_s.arg(c));
  auto* v = t.abrir(u"BrowPLUs"_s);
  auto& grid = t.lista(v);
  grid.vista()->selectAll();
  t.responder(u"Acepto"_s);
  t.tecla(Qt::Key_Delete);
  v->trabajo().parar();
  const int quedan = t.leer(u"select count(*) from PLUSES where SECCION=1 and CODPLU>2"_s).toInt();
  ASSERT_GT(quedan, 0);
  EXPECT_TRUE(v->tira().texto().endsWith(
      u"Se paró antes de acabar: %1 artículos de los elegidos se quedan como estaban."_s.arg(
          quedan)))
      << v->tira().texto().toStdString();
}

TEST(Trabajos, CopiarMoverYDeshacer) {
  MesaDeArticulos t;
  auto* v = t.abrir(u"BrowPLUs"_s);
  auto& grid = t.lista(v);
  const auto rowid = [&](int codigo) {
    return bien(t.db->uno(u"select rowid from PLUSES where SECCION=1 and CODPLU=?"_s, codigo))
        .entero();
  };
  const QString segunda =
      u"select CODPLU from PLUSES where SECCION=2 and CODPLU>2 order by CODPLU"_s;
  grid.elegir({rowid(10), rowid(20), rowid(30)});
  t.responder(u"Acepto"_s);
  t.tecla(Qt::Key_F6);
  ASSERT_TRUE(esperar([&] { return t.leer(segunda) == u"10 | 20 | 30"; }));
  EXPECT_EQ(v->tira().texto(),
            u"2 artículos copiados. El código de registro ya existe: No debe duplicarse");
  EXPECT_EQ(t.leer(u"select NOMPLU from PLUSES where SECCION=2 and CODPLU=20"_s), u"Lomo");
  EXPECT_TRUE(t.cambiadas().empty());
  v->activateWindow();
  ASSERT_TRUE(t.activa(v));
  grid.vista()->setFocus();
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  ASSERT_TRUE(esperar([&] { return t.leer(segunda) == u"20"; })) << v->tira().texto().toStdString();
  grid.limpiarSeleccion();
  grid.irA(grid.filaDe(rowid(10)));
  t.responder(u"Acepto"_s);
  t.tecla(Qt::Key_F7);
  ASSERT_TRUE(esperar([&] { return t.leer(segunda) == u"10 | 20"; }));
  EXPECT_EQ(grid.filas(), 11);
  EXPECT_EQ(t.cruces(), u"10 1 1 | 20 1 0");
}

// The only article shown is moved away, and undo restores it with the history of its prices.
TEST(Trabajos, ElUnicoSeMueveYVuelve) {
  MesaDeArticulos t;
  t.sql(u"delete from PLUSES where SECCION=1 and CODPLU>10"_s);
  bien(t.catalogo.ponerPrecios({1, 10}, Precios{{{125}}}, u"xEditPLU"_s));
  auto* v = t.abrir(PuertaBrowPLUs{.seccion = 1, .departamento = 1});
  auto& grid = t.lista(v);
  ASSERT_EQ(grid.filas(), 1);
  t.responder(u"Acepto"_s);
  t.tecla(Qt::Key_F7);
  ASSERT_TRUE(esperar([&] { return grid.filas() == 0; }));
  const QString historia = u"select SECCION, ANTES, AHORA from HistoriaPrecios"_s;
  EXPECT_EQ(t.leer(historia), u"2 100 125");
  v->activateWindow();
  ASSERT_TRUE(t.activa(v));
  grid.vista()->setFocus();
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  ASSERT_TRUE(esperar([&] { return grid.filas() == 1; })) << v->tira().texto().toStdString();
  EXPECT_EQ(t.leer(historia), u"1 100 125");
  EXPECT_EQ(t.enMano(grid), 10);
  EXPECT_EQ(grid.filasElegidas(), std::vector<int>{0});
}

TEST(Trabajos, UnDepartamentoBorradoYRepuesto) {
  MesaDeArticulos t;
  t.departamento(2, u"Verdura");
  t.sql(u"update DEPTS set IVA=3"_s);
  auto* v = t.abrir(PuertaBrowGrupos{});
  auto* arbol = t.control<QTreeWidget>(v, u"Arbol");
  t.tecla(Qt::Key_Down);  // from the section to its department
  t.responder(u"Acepto"_s);
  t.tecla(Qt::Key_Delete);
  EXPECT_EQ(t.textoModal,
            u"Va a borrar un departamento completo....\nDepartamento 01  Fruta\nBorrará también "
            u"PLUs:  10");
  EXPECT_EQ(t.leer(u"select NomDep from DEPTS"_s), u"Verdura");
  EXPECT_EQ(arbol->currentItem()->text(0), u"Verdura");
  EXPECT_EQ(t.leer(u"select count(*) from PLUSES where SECCION=1"_s), u"2");
  EXPECT_EQ(t.cruces(), u"10 1 1 | 20 1 1") << "only articles that groups have";
  v->activateWindow();
  ASSERT_TRUE(t.activa(v));
  arbol->setFocus();
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(t.leer(u"select NUMDEP, NomDep, IVA from DEPTS order by NUMDEP"_s),
            u"1 Fruta 3 | 2 Verdura 3");
  EXPECT_EQ(t.leer(u"select count(*) from HistoriaPrecios"_s), u"0") << "nobody set a price";
  EXPECT_EQ(t.leer(u"select count(*) from PLUSES where SECCION=1"_s), u"12");
  t.catalogo.cambios().guardaPorGrupo({[](int) { return Resultado<>(); },
                                       {},
                                       [](int grupo) -> Resultado<std::optional<qint64>> {
                                         return grupo == 2 ? std::optional<qint64>(1250)
                                                           : std::nullopt;
                                       }});
  // Deleting a whole section asks, with its counts and the sales that are nowhere else; "No" keeps
  // everything.
  arbol->setCurrentItem(arbol->topLevelItem(0));
  QString dicho;
  const auto escribirNumero = [&](const QString& numero) {
    v->activateWindow();
    ASSERT_TRUE(t.activa(v));
    arbol->setFocus();
    t.alAbrirse([&dicho, numero](QWidget* w) {
      dicho = w->findChild<QLabel*>()->text();
      auto* campo = w->findChild<QLineEdit*>();
      campo->setText(numero);
      QTest::keyClick(campo, Qt::Key_Return);
    });
    t.tecla(Qt::Key_Delete);
  };
  escribirNumero({});  // as with Return alone
  EXPECT_EQ(dicho.toStdString(),
            "Va a borrar una sección completa....\nSección 001  SECCIÓN ÚNICA\nBorrará también "
            "PLUs:  10\nBorrará también Deptos. :  2\nBorrará también Grupos :  4\nAdemás: "
            "máquinas, 0; ofertas, 0; artículos con existencias, 0; cambios de precio "
            "guardados, 0.\nY con sus grupos se van ventas que no están en ningún periodo, sólo en "
            "la bandeja:\n0002 G: 12,50 Eur\nPara borrarla, escriba el número de la sección:");
  escribirNumero(u"2"_s);
  EXPECT_EQ(t.leer(u"select count(*) from SECCS"_s), u"2");
  // The right number deletes it, after a backup of the database; undo restores all of it.
  escribirNumero(u"1"_s);
  EXPECT_EQ(t.leer(u"select NMSECC from SECCS"_s), u"2");
  const QDir carpeta(t.ajustes.HomeDir);
  EXPECT_EQ(carpeta.entryList({u"ANTES-DE-BORRAR-SECCION-001-*.MDB"_s}).size(), 1);
  v->activateWindow();
  ASSERT_TRUE(t.activa(v));
  arbol->setFocus();
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(t.leer(u"select NMSECC from SECCS order by 1"_s), u"1 | 2");
  EXPECT_EQ(t.leer(u"select count(*) from PLUSES where SECCION=1"_s), u"12");
  EXPECT_EQ(t.leer(u"select CODGPO from GRUPOS order by 1"_s), u"1 | 2 | 3 | 4");
}

// The list reports an operation of another window that was cut off, and undoes it or accepts it as
// it is; until then it stays pending, even after the list is closed.
TEST(Trabajos, LoQueSeCortoSeDiceYSeResuelve) {
  for (const bool deshacer : {true, false}) {
    MesaDeArticulos t;
    articles::Lotes lotes(t.catalogo);
    const qint64 lote = bien(lotes.empezar(u"ImpPLU"_s));
    bien(lotes.guardar(lote, {1, 10}));
    t.sql(u"update PLUSES set PRECIO_00=1 where SECCION=1 and CODPLU=10"_s);
    const auto amedias = [&] { return t.leer(u"select ACABADO from LoteArticulos"_s); };
    auto* v = t.abrir(PuertaBrowPLUs{.seccion = 1});
    EXPECT_TRUE(v->tira().texto().contains(u"se cortó")) << v->tira().texto().toStdString();
    EXPECT_TRUE(v->descargar());
    EXPECT_EQ(amedias(), u"0");
    v = t.abrir(PuertaBrowPLUs{.seccion = 1});
    t.alAbrirse([&t, deshacer](QWidget* w) {
      if (!deshacer) t.responder(u"Acepto"_s);  // to the second question
      w->findChild<QPushButton*>(deshacer ? u"Acepto"_s : u"Cancelo"_s)->click();
    });
    t.lista(v).setFocus();
    t.tecla(Qt::Key_Z, Qt::ControlModifier);
    ASSERT_TRUE(esperar([&] { return !v->trabajo().enMarcha(); }));
    EXPECT_EQ(t.leer(u"select PRECIO_00 from PLUSES where SECCION=1 and CODPLU=10"_s),
              deshacer ? u"100" : u"1");
    EXPECT_EQ(amedias(), deshacer ? u"" : u"1");
  }
}

// What would stay as it is, because somebody changed it since, is named before a cut off operation
// is undone.
TEST(Trabajos, LoQueNoVolveriaDeLoCortadoSeDiceAntes) {
  for (const bool sigue : {false, true}) {
    MesaDeArticulos t;
    articles::Lotes lotes(t.catalogo);
    const qint64 lote = bien(lotes.empezar(u"ImpPLU"_s));
    for (const qint64 n : {10, 20}) {
      bien(lotes.guardar(lote, {1, n}));
      t.sql(u"update PLUSES set PRECIO_00=1 where SECCION=1 and CODPLU=%1"_s.arg(n));
      bien(lotes.anotar(lote, {1, n}));
    }
    t.sql(u"update PLUSES set PRECIO_00=777 where SECCION=1 and CODPLU=20"_s);
    auto* v = t.abrir(PuertaBrowPLUs{.seccion = 1});
    QString aviso;
    t.alAbrirse([&](QWidget* w) {
      t.alAbrirse([&](QWidget* segunda) {
        aviso = t.textoModal;
        t.control<QPushButton>(segunda, sigue ? u"Acepto" : u"Cancelo")->click();
      });
      t.control<QPushButton>(w, u"Acepto")->click();
    });
    t.lista(v).setFocus();
    t.tecla(Qt::Key_Z, Qt::ControlModifier);
    ASSERT_TRUE(esperar([&] { return !v->trabajo().enMarcha(); }));
    EXPECT_TRUE(aviso.contains(u"001 0000020"_s)) << aviso.toStdString();
    EXPECT_EQ(t.leer(u"select PRECIO_00 from PLUSES where SECCION=1 and CODPLU in (10, 20)"_s),
              sigue ? u"100 | 777" : u"1 | 777");
  }
}

// A copy made by a key too many goes again; what was done in it since is asked about, and groups
// keep it.
TEST(Trabajos, UnaSeccionCopiadaSeQuita) {
  MesaDeArticulos t;
  auto* v = t.abrir(PuertaBrowGrupos{});
  const QString cuantos = u"select count(*) from PLUSES where SECCION=3"_s;
  const auto copiar = [&] {
    v->findChild<QAction*>(u"Copia"_s)->trigger();
    ASSERT_TRUE(esperar([&] { return !v->trabajo().enMarcha(); }));
    EXPECT_EQ(t.leer(cuantos), u"12");
  };
  const auto deshacer = [&] { v->findChild<QAction*>(u"Deshacer"_s)->trigger(); };
  copiar();
  EXPECT_TRUE(v->tira().texto().contains(u"Ctrl+Z"));
  deshacer();
  EXPECT_EQ(t.leer(cuantos), u"0");
  EXPECT_EQ(v->tira().texto(), u"Sección 003 se ha quitado.");

  copiar();
  t.sql(u"UPDATE PLUSES SET PRECIO_00=777 WHERE SECCION=3"_s);
  for (const QString& boton : {u"Cancelo"_s, u"Acepto"_s}) {
    t.responder(boton);
    deshacer();
    EXPECT_TRUE(t.textoModal.contains(u"10 artículos")) << t.textoModal.toStdString();
    EXPECT_EQ(t.leer(cuantos), boton == u"Cancelo" ? u"12" : u"0");
  }
  copiar();
  t.sql(u"INSERT INTO GRUPOS (CODGPO, SECCION) VALUES (9, 3)"_s);
  deshacer();
  EXPECT_TRUE(v->tira().texto().contains(u"ya tiene grupos")) << v->tira().texto().toStdString();
  EXPECT_EQ(t.leer(cuantos), u"12");
}

// A Return too many neither sends nor closes.
TEST(Trabajos, EnviarAlSalirNoEsLoDeIntro) {
  MesaDeArticulos t;
  t.alAbrirse([](QWidget* w) { QTest::keyClick(w->focusWidget(), Qt::Key_Return); });
  EXPECT_FALSE(t.escritorio.ventanas().preguntar(PuertaQueHacemos{}, nullptr));
}

// A section with articles goes only when its number is typed, and that number alone.
TEST(Trabajos, UnaSeccionLlenaSeBorraEscribiendoSuNumero) {
  static constexpr struct {
    const char16_t* escrito;
    bool seVa;
  } kCasos[] = {{u"", false}, {u"1", false}, {u"x2", false}, {u"22", false}, {u" 002 ", true}};
  MesaDeArticulos t;
  auto* v = t.abrir(PuertaBrowGrupos{});
  auto* arbol = t.control<QTreeWidget>(v, u"Arbol");
  arbol->setCurrentItem(arbol->topLevelItem(1));
  for (const auto& c : kCasos) {
    const QString escrito = QString::fromUtf16(c.escrito);
    t.alAbrirse([&](QWidget* w) {
      QTest::keyClicks(w->findChild<QLineEdit*>(), escrito);
      QTest::keyClick(w->findChild<QLineEdit*>(), Qt::Key_Return);
    });
    v->findChild<QAction*>(u"Borro"_s)->trigger();
    EXPECT_EQ(t.leer(u"select count(*) from SECCS where NMSECC=2"_s), c.seVa ? u"0" : u"1")
        << escrito.toStdString();
    EXPECT_EQ(v->tira().texto().contains(u"«"_s + escrito + u"»"_s), !c.seVa);
  }
}

TEST(Trabajos, UnaSeccionCopiadaYSuNombre) {
  MesaDeArticulos t;
  auto* v = t.abrir(PuertaBrowGrupos{});
  t.tecla(Qt::Key_F6);
  ASSERT_TRUE(esperar([&] {
    return t.leer(u"select NOMSEC from SECCS where NMSECC=3"_s) == u"Copia de SECCIÓN ÚNICA";
  }));
  EXPECT_EQ(t.leer(u"select count(*) from PLUSES where SECCION=3"_s), u"12");
  t.control<QTreeWidget>(v, u"Arbol")->setFocus();
  t.tecla(Qt::Key_F2);
  t.escribir(u"Tienda 2"_s);
  t.tecla(Qt::Key_Return);
  EXPECT_TRUE(
      esperar([&] { return t.leer(u"select NOMSEC from SECCS where NMSECC=3"_s) == u"Tienda 2"; }));
}

}  // namespace tarvo::prueba
