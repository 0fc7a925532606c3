// From the list into the fast windows and the calculator, with keys alone.
#include <QClipboard>

#include "MesaDeArticulos.h"
#include "articles/precios/ventanas/RegistrarVentanas.h"

namespace tarvo::prueba {

namespace {

// Groups 1 and 4 have 40 articles, priced 1,00 to 40,00.
struct Mercado : MesaDeArticulos {
  Mercado() {
    for (int c = 110; c <= 400; c += 10) articulo(1, c, u"Artículo %1"_s.arg(c));
    sql(u"delete from [Cross]"_s);
    for (const int grupo : {1, 4})
      sql(u"insert into [Cross] (Secc, plu, Grupo, borra) select 1, CODPLU, ?, 0 from PLUSES where "
          u"SECCION=1 and CODPLU>2"_s,
          grupo);
    precios::registrarVentanasPrecios(escritorio.ventanas(), catalogo, ofertas);
    lista_ = abrir(u"BrowPLUs"_s);
  }

  // Opens a menu with a key and chooses its first entry.
  ventanas::Ventana* porMenu(Qt::Key k, const QString& nombre) {
    tecla(k);
    EXPECT_TRUE(esperar([] { return QApplication::activePopupWidget() != nullptr; }));
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    return cargada(nombre);
  }
  // Presses Tab until the control has the focus.
  bool irA(const QString& nombre) {
    for (int i = 0; i < 60; ++i) {
      QWidget* foco = QApplication::focusWidget();
      if (!foco) return false;
      if (foco->objectName() == nombre) return true;
      tecla(Qt::Key_Tab);
    }
    return false;
  }
  // Escape returns to the list.
  void salir(const QString& nombre) {
    tecla(Qt::Key_Escape);
    EXPECT_TRUE(esperar([&] { return escritorio.ventanas().cargada(nombre) == nullptr; }));
    lista_->activateWindow();
    EXPECT_TRUE(activa(lista_));
  }
  QString precios() {
    return leer(
        u"select CODPLU, PRECIO_00 from PLUSES where SECCION=1 and CODPLU>2 order by CODPLU"_s);
  }

  precios::Ofertas ofertas{*db, textos, reloj};
  ventanas::Ventana* lista_ = nullptr;
};

}  // namespace

TEST(RapidasDesdeLaLista, TreintaPrecios) {
  Mercado t;
  t.porMenu(Qt::Key_F3, u"FastModf"_s);
  ASSERT_TRUE(t.irA(u"precio00"_s));
  QStringList debe;
  for (int i = 1; i <= 40; ++i) {
    debe << u"%1 %2"_s.arg(10 * i).arg(i <= 30 ? 1000 + i : 100 * i);
    if (i > 30) continue;
    t.escribir(u"10,"_s + Ceros(i, 2));
    t.tecla(Qt::Key_Return);
  }
  EXPECT_EQ(t.precios(), debe.join(u" | "));
  EXPECT_EQ(t.leer(u"select min(plu), max(plu), count(*) from [Cross]"_s), u"310 400 20")
      << "no group has the new prices of the thirty";
  EXPECT_EQ(t.leer(u"select count(*) from HistoriaPrecios where VENTANA='FastModf'"_s), u"30");
  EXPECT_EQ(t.cambiadas(), std::vector<int>{1});
  t.salir(u"FastModf"_s);
  EXPECT_EQ(t.lista(t.lista_).texto(2, u"PRECIO_00"), u"10,01") << "the list is refreshed";
}

// What the fast change wrote is undone in the list once it is closed, except what was undone there;
// cells filled together come back together.
TEST(RapidasDesdeLaLista, LoDelCambioRapidoVuelveDesdeLaLista) {
  Mercado t;
  const QString antes = t.precios();
  auto* v = t.porMenu(Qt::Key_F3, u"FastModf"_s);
  ASSERT_TRUE(t.irA(u"precio00"_s));
  for (const QString& precio : {u"1,10"_s, u"2,20"_s, u"3,30"_s}) {
    t.escribir(precio);
    t.tecla(Qt::Key_Return);
  }
  v->findChild<QAction*>(u"Deshacer"_s)->trigger();
  auto& grid = t.lista(v, u"Grd");
  grid.vista()->setFocus();
  grid.vista()->setCurrentIndex(grid.modelo()->index(5, grid.modelo()->columna(u"PRECIO_00")));
  QApplication::clipboard()->setText(u"7\n8"_s);
  grid.pegar();
  t.salir(u"FastModf"_s);
  const auto deshacer = [&] {
    t.lista(t.lista_).vista()->setFocus();
    t.tecla(Qt::Key_Z, Qt::ControlModifier);
  };
  EXPECT_TRUE(t.precios().startsWith(u"10 110 | 20 220 | 30 300 | 40 400"_s));
  EXPECT_TRUE(t.precios().contains(u"700 | "_s) && t.precios().contains(u"800 | "_s));
  deshacer();
  EXPECT_TRUE(
      t.precios().startsWith(u"10 110 | 20 220 | 30 300 | 40 400 | 50 500 | 60 600 | 70 700"_s))
      << t.precios().left(90).toStdString();
  deshacer();
  EXPECT_EQ(t.lista_->tira().texto(), u"Deshecho: P. Base, Tarifa 1, que era «2,00».");
  deshacer();
  EXPECT_EQ(t.precios(), antes);
  EXPECT_FALSE(t.lista_->findChild<QAction*>(u"Deshacer"_s)->isEnabled());
}

TEST(RapidasDesdeLaLista, UnArticuloNuevo) {
  Mercado t;
  auto& suyos = t.ajustes.de<precios::AjustesPrecios>();
  suyos.NumPreciosAlta = suyos.NumTarifasAlta = 1;
  suyos.ParrillaRapida = u"1,1,2,1,1,0,0,0,0,0,1,2,1,0,1,1,0,1,5,,0,0"_s;
  auto* v = t.porMenu(Qt::Key_Insert, u"FastAlta"_s);
  for (const QString& texto : {u"555"_s, u"Lomo"_s, u"12,5"_s}) {
    t.escribir(texto);
    t.tecla(Qt::Key_Return);
  }
  for (int i = 0; i < 5; ++i) t.tecla(Qt::Key_Return);  // the department is fixed
  EXPECT_EQ(QApplication::focusWidget()->objectName(), u"Alta");
  t.responder(u"Si"_s);
  t.tecla(Qt::Key_Return);
  EXPECT_EQ(t.leer(u"select NOMPLU, PRECIO_00, DEPTO, FORMATO from PLUSES where CODPLU=555"_s),
            u"Lomo 1250 1 5");
  EXPECT_EQ(t.leer(u"select count(*) from [Cross] where plu=555"_s), u"0") << "due for all groups";
  EXPECT_EQ(t.leer(u"select AHORA, VENTANA from HistoriaPrecios"_s), u"1250 FastAlta");
  v->activateWindow();
  ASSERT_TRUE(t.activa(v));
  t.salir(u"FastAlta"_s);
  EXPECT_EQ(t.lista(t.lista_).filas(), 43);
}

TEST(RapidasDesdeLaLista, UnPrecioCalculado) {
  Mercado t;
  t.sql(u"update PLUSES set COSTE=500 where SECCION=1"_s);
  t.ajustes.de<precios::AjustesPrecios>().calculoPrecios = {.a = true, .b = 5};
  auto& grid = t.lista(t.lista_);
  ASSERT_EQ(t.enMano(grid), 10);
  t.tecla(Qt::Key_F11);
  t.cargada(u"CalcPre"_s);
  ASSERT_TRUE(t.irA(u"pcMarg"_s));
  t.escribir(u"51,3"_s);  // 7,565
  t.tecla(Qt::Key_PageDown);
  EXPECT_EQ(t.enMano(grid), 20) << "the list moves too";
  EXPECT_EQ(t.leer(u"select PRECIO_00, PRECIO_01 from PLUSES where SECCION=1 and CODPLU=10"_s),
            u"760 0");
  EXPECT_EQ(t.leer(u"select min(plu), count(*) from [Cross]"_s), u"20 78");
  EXPECT_EQ(t.leer(u"select CODPLU, ANTES, AHORA, VENTANA from HistoriaPrecios"_s),
            u"10 100 760 CalcPre");
  t.salir(u"CalcPre"_s);
  EXPECT_EQ(t.enMano(grid), 20);
  EXPECT_EQ(grid.texto(2, u"PRECIO_00"), u"7,60");
  QTest::keyClick(t.lista_, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(t.leer(u"select PRECIO_00 from PLUSES where SECCION=1 and CODPLU=10"_s), u"100")
      << "taken back in the list";
}

}  // namespace tarvo::prueba
