#include "MesaDePrecios.h"
#include "articles/precios/CambioLote.h"
#include "capturas/Capturas.h"
#include "core/ventanas/marco/TiraTrabajo.h"

namespace tarvo::prueba {

// A locked margin of 50 % for articles that cost 5,00, 8,00 and 10,01.
TEST(VentanaCalculo, ElMargenBloqueadoPasaPorTresArticulos) {
  MesaDePrecios m;
  m.sql(u"update PLUSES set COSTE=800 where CODPLU=4"_s);
  m.sql(u"update PLUSES set COSTE=1001 where CODPLU=5"_s);
  m.suyos.calculoPrecios = {.a = true, .b = 5};
  auto* lista = m.abrir<ListaDeArticulos>(u"BrowPLUs"_s);
  auto* v = m.abrir(u"CalcPre"_s);
  EXPECT_EQ(lista->hijos, 1);
  EXPECT_EQ(m.texto(v, u"lbPLU"_s), u"0000003  Artículo 3");
  EXPECT_EQ(m.campo(v, u"pcMarg"_s).text(), u"-40,00") << "a price of 3,00 for a cost of 5,00";
  MesaDePrecios::escribir(v, u"pcMarg"_s, u"50"_s);
  m.pulsar(Qt::Key_Tab);
  EXPECT_EQ(m.texto(v, u"PVP"_s), u"7,50");
  EXPECT_EQ(m.campo(v, u"precio00"_s).text(), u"7,50");
  v->findChild<QPushButton*>(u"togg"_s)->setFocus();
  m.pulsar(Qt::Key_Space);
  EXPECT_FALSE(m.campo(v, u"pcMarg"_s).isEnabled());
  m.campo(v, u"costeN"_s).setFocus();
  for (int i = 0; i < 2; ++i) m.pulsar(Qt::Key_PageDown);
  EXPECT_EQ(m.texto(v, u"lbPLU"_s), u"0000005  Artículo 5");
  m.responder(u"Acepto"_s);  // it is three times the former price
  m.boton(v, u"Salvar"_s);
  EXPECT_EQ(m.leer(u"select PRECIO_00 from PLUSES where CODPLU in (3, 4, 5, 6) order by CODPLU"_s),
            u"750 | 1200 | 1505 | 600")
      << "15,015 is 15,02, rounded up to 15,05; article 6 wasn't reached";
  EXPECT_EQ(m.leer(u"select min(plu) from [Cross]"_s), u"6");
  v->descargar();
  EXPECT_EQ(lista->hijos, 0);
  EXPECT_TRUE(m.suyos.calculoPrecios.c);
  EXPECT_EQ(m.suyos.calculoPrecios.d, 50);
}

// A system article keeps its prices, and whoever types one is told, also after moving on.
TEST(VentanaCalculo, LoDeUnArticuloDelSistemaNoSeGuardaYSeDice) {
  MesaDePrecios m;
  auto* v = m.abrir(precios::PuertaCalcPre{.seccion = 1, .codigo = 1});
  MesaDePrecios::escribir(v, u"precio00"_s, u"7"_s);
  m.pulsar(Qt::Key_Return);
  const auto dicho = [&] {
    return v->tira().texto().startsWith(u"VENTA LIBRE A PESO es un artículo del sistema");
  };
  EXPECT_TRUE(dicho()) << v->tira().texto().toStdString();
  QTest::keyClick(v, Qt::Key_PageDown);
  EXPECT_TRUE(dicho()) << v->tira().texto().toStdString();
}

TEST(VentanaCalculo, SinTocarNadaNoSeEscribeNada) {
  MesaDePrecios m;
  m.sql(u"update PLUSES set COSTE=333"_s);
  auto* lista = m.abrir<ListaDeArticulos>(u"BrowPLUs"_s);
  auto* v = m.abrir(u"CalcPre"_s);
  for (int i = 0; i < 5; ++i) {
    for (int campos = 0; campos < 4; ++campos) m.pulsar(Qt::Key_Tab);
    QTest::keyClick(v, Qt::Key_PageDown);
  }
  EXPECT_EQ(lista->codigo, 8);
  EXPECT_EQ(m.leer(u"select count(*) from HistoriaPrecios"_s), u"0");
  EXPECT_EQ(m.leer(u"select count(*) from [Cross]"_s), u"80");
  lista->codigo = 20;
  lista->movido();
  EXPECT_EQ(m.texto(v, u"lbPLU"_s), u"0000020  Artículo 20") << "it follows the list's current row";
  MesaDePrecios::escribir(v, u"costeN"_s, u"8"_s);
  m.pulsar(Qt::Key_Escape);
  EXPECT_EQ(m.leer(u"select COSTE from PLUSES where CODPLU=20"_s), u"333")
      << "closing doesn't save";
}

TEST(VentanaLote, SubeUnDepartamentoYSeDeshace) {
  MesaDePrecios m;
  m.sql(u"update PLUSES set DEPTO=2 where CODPLU>32"_s);
  m.sql(u"update PLUSES set PRECIO_00=990000 where CODPLU=42"_s);
  auto* v = m.abrir(precios::PuertaCambioLote{.seccion = 1});
  v->findChild<QComboBox*>(u"dbD"_s)->setCurrentIndex(2);
  MesaDePrecios::escribir(v, u"txPc"_s, u"10"_s);
  MesaDePrecios::escribir(v, u"txPaso"_s, u"0,50"_s);
  auto* aplicar = v->findChild<QPushButton*>(u"Aplicar"_s);
  ASSERT_TRUE(esperar([&] { return aplicar->isEnabled(); }));
  auto& grid = *v->findChild<ventanas::Parrilla*>(u"Grid"_s);
  ASSERT_EQ(grid.filas(), 10);
  EXPECT_EQ(grid.texto(0, u"antes") + u'>' + grid.texto(0, u"despues"), u"33,00>36,50");
  EXPECT_EQ(grid.texto(9, u"estado"), u"No cabe en las balanzas");
  EXPECT_EQ(m.texto(v, u"resumen"_s), u"9 de 10 cambian; no pueden: 1");
  const QString precios = u"select sum(PRECIO_00) from PLUSES"_s;
  const QString antes = m.leer(precios);
  // The focus is back where it was, whatever the answer.
  auto* paso = v->findChild<QLineEdit*>(u"txPaso"_s);
  ASSERT_TRUE(paso->hasFocus());
  m.responder(u"Cancelo"_s);
  m.pulsar(Qt::Key_Return);
  EXPECT_TRUE(esperar([&] { return v->focusWidget() == paso; }));
  v->activateWindow();  // a slow desktop may not have done so yet
  m.responder(u"Acepto"_s);
  m.pulsar(Qt::Key_Return);
  EXPECT_TRUE(m.textoModal.startsWith(u"Va a cambiar 9 artículos: ¿Seguro?"));
  auto* deshacer = v->findChild<QPushButton*>(u"Deshacer"_s);
  ASSERT_TRUE(esperar([&] { return deshacer->isEnabled(); }));
  EXPECT_TRUE(esperar([&] { return v->focusWidget() == paso; }));
  EXPECT_EQ(m.leer(u"select PRECIO_00 from PLUSES where CODPLU in (32, 33, 42) order by CODPLU"_s),
            u"3200 | 3650 | 990000");
  EXPECT_FALSE(aplicar->isEnabled()) << "a second Enter raises nothing";
  QTest::keyClick(v->findChild<QLineEdit*>(u"txPc"_s), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_FALSE(aplicar->isEnabled()) << "nor does one after Ctrl+Z in the field";
  m.boton(v, u"Deshacer"_s);
  ASSERT_TRUE(esperar([&] { return m.leer(precios) == antes && !v->trabajo().enMarcha(); }));
  EXPECT_FALSE(deshacer->isEnabled());
}

// What was changed before the window was opened is undone after a question that tells what it was.
TEST(VentanaLote, UnCambioDeAntesSePregunta) {
  MesaDePrecios m;
  const QString precios = u"select sum(PRECIO_00) from PLUSES"_s;
  const QString antes = m.leer(precios);
  const precios::PuertaCambioLote puerta{.seccion = 1};
  auto* v = m.abrir(puerta);
  MesaDePrecios::escribir(v, u"txPc"_s, u"10"_s);
  auto* aplicar = v->findChild<QPushButton*>(u"Aplicar"_s);
  ASSERT_TRUE(esperar([&] { return aplicar->isEnabled(); }));
  m.responder(u"Acepto"_s);
  m.boton(v, u"Aplicar"_s);
  ASSERT_TRUE(esperar([&] { return m.leer(precios) != antes && !v->trabajo().enMarcha(); }));
  const QString despues = m.leer(precios);
  ASSERT_TRUE(v->descargar());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  v = m.abrir(puerta);
  m.alAbrirse([](QWidget* w) { QTest::keyClick(w->focusWidget(), Qt::Key_Return); });
  m.boton(v, u"Deshacer"_s);
  EXPECT_TRUE(m.textoModal.contains(u"40 artículos: «Artículo 3» pasó de 3,00 a 3,30"))
      << m.textoModal.toStdString();
  EXPECT_TRUE(m.textoModal.contains(m.reloj.ahora().corta())) << m.textoModal.toStdString();
  ASSERT_TRUE(esperar([&] { return !v->trabajo().enMarcha(); }));
  EXPECT_EQ(m.leer(precios), despues) << "Cancelar is the default";
  m.responder(u"Acepto"_s);
  m.boton(v, u"Deshacer"_s);
  EXPECT_TRUE(esperar([&] { return m.leer(precios) == antes && !v->trabajo().enMarcha(); }));
}

// Stopped or closed in the middle, no price has changed. If the undoing is stopped, the rest stays
// pending.
TEST(VentanaLote, ParadoNoDejaNada) {
  MesaDePrecios m;
  auto muchos = dao::Transaccion::empezar(*m.db);
  ASSERT_TRUE(muchos);
  for (int i = 100; i < 6'100; ++i) m.articulo({.codigo = i, .depto = 1, .precio = 100});
  bien(muchos->confirmar());
  const auto subidos = [&] {
    return m.leer(u"select count(*) from PLUSES where CODPLU>=100 and PRECIO_00<>100"_s).toInt();
  };
  auto* v = m.abrir(precios::PuertaCambioLote{.seccion = 1});
  const auto lanzar = [&] {
    MesaDePrecios::escribir(v, u"txPc"_s, u"10"_s);
    auto* aplicar = v->findChild<QPushButton*>(u"Aplicar"_s);
    ASSERT_TRUE(esperar([&] { return aplicar->isEnabled(); }));
    m.responder(u"Acepto"_s);
    m.pulsar(Qt::Key_Return);
  };
  lanzar();
  ASSERT_TRUE(esperar([&] { return subidos() > 100; }));
  EXPECT_LT(subidos(), 5'900);
  QTest::keyClick(v, Qt::Key_Escape);
  ASSERT_TRUE(esperar([&] { return subidos() == 0 && !v->trabajo().enMarcha(); }));
  EXPECT_EQ(v->tira().texto(), m.textos(4599));
  EXPECT_FALSE(v->findChild<QPushButton*>(u"Deshacer"_s)->isEnabled());

  lanzar();
  ASSERT_TRUE(esperar([&] { return subidos() == 6'000 && !v->trabajo().enMarcha(); }));
  m.boton(v, u"Deshacer"_s);
  ASSERT_TRUE(esperar([&] { return subidos() < 5'900; }));
  QTest::keyClick(v, Qt::Key_Escape);
  const int quedan = subidos();
  EXPECT_GT(quedan, 0);
  EXPECT_TRUE(v->tira().texto().startsWith(u"%1 artículos de una operación a medias"_s.arg(quedan)))
      << v->tira().texto().toStdString();
  m.boton(v, u"Deshacer"_s);
  ASSERT_TRUE(esperar([&] { return subidos() == 0 && !v->trabajo().enMarcha(); }));

  lanzar();
  ASSERT_TRUE(esperar([&] { return subidos() > 100; }));
  // Closing it asks, and the window stays unless the user confirms; the work waits for the answer.
  m.alAbrirse([&](QWidget* w) {
    const int antes = subidos();
    for (int i = 0; i < 50; ++i) QCoreApplication::processEvents();
    EXPECT_EQ(subidos(), antes);
    w->findChild<QPushButton*>(u"Cancelo"_s)->click();
  });
  EXPECT_FALSE(v->descargar());
  EXPECT_EQ(m.textoModal, m.textos(12010));
  ASSERT_TRUE(v->trabajo().enMarcha());
  m.responder(u"Acepto"_s);
  EXPECT_TRUE(v->descargar());
  EXPECT_EQ(subidos(), 0);
}

// A change cut off before is reported, and completed from here.
TEST(VentanaLote, LoQueSeCortoSeTermina) {
  MesaDePrecios m;
  for (int i = 100; i < 800; ++i) m.articulo({.codigo = i, .depto = 1, .precio = 100});
  articles::Lotes lotes(m.catalogo);
  precios::CambioLote motor(m.catalogo, lotes);
  std::vector<articles::ClaveArticulo> claves;
  for (int i = 100; i < 800; ++i) claves.push_back({1, i});
  const auto cortada = motor.empezar(
      claves, *precios::SubePrecios::de(1000, 1, precios::Redondeo::MasProximo, {}, {}),
      u"CambioLote"_s);
  while (cortada->hecho().cambiados == 0) ASSERT_TRUE(bien(cortada->paso()));
  auto* v = m.abrir(precios::PuertaCambioLote{.seccion = 1});
  EXPECT_TRUE(v->tira().texto().contains(u"a medias")) << v->tira().texto().toStdString();
  auto* terminar = v->findChild<QPushButton*>(u"Terminar"_s);
  ASSERT_TRUE(terminar->isVisible());
  terminar->click();
  ASSERT_TRUE(esperar([&] { return !v->trabajo().enMarcha(); }));
  EXPECT_EQ(m.leer(u"select count(*) from PLUSES where PRECIO_00=110"_s), u"700");
  EXPECT_FALSE(terminar->isVisible());
  EXPECT_EQ(m.leer(u"select ACABADO from LoteArticulos"_s), u"1");
}

TEST(VentanaLote, LosArticulosElegidosCambianDeDepartamento) {
  MesaDePrecios m;
  auto* v = m.abrir(precios::PuertaCambioLote{.seccion = 1, .codigos = {7, 9}});
  EXPECT_EQ(m.texto(v, u"elegidos"_s), u"2 artículos elegidos");
  v->findChild<QComboBox*>(u"que"_s)->setCurrentIndex(1);
  v->findChild<QComboBox*>(u"depto"_s)->setCurrentIndex(1);
  auto* aplicar = v->findChild<QPushButton*>(u"Aplicar"_s);
  ASSERT_TRUE(esperar([&] { return aplicar->isEnabled(); }));
  m.responder(u"Acepto"_s);
  m.boton(v, u"Aplicar"_s);
  ASSERT_TRUE(esperar([&] {
    return m.leer(u"select CODPLU from PLUSES where DEPTO=2 order by CODPLU"_s) == u"7 | 9";
  }));
  // The fields of prices are hidden: the focus is in one that is shown, and goes back to it.
  ASSERT_TRUE(esperar([&] { return !v->trabajo().enMarcha(); }));
  EXPECT_EQ(v->focusWidget(), v->findChild<QComboBox*>(u"depto"_s));
}

// All windows are readable, full and empty, in both themes, both sizes and all font scales.
TEST(FotosPrecios, SeLeen) {
  for (const bool llena : {false, true}) {
    MesaDePrecios m;
    if (!llena) m.sql(u"delete from PLUSES where CODPLU>2"_s);
    for (int i = 3; llena && i <= 42; ++i)
      m.oferta({.grupo = 1, .codigo = i, .precio = 90 * i, .desde = 43100, .hasta = 43130});
    QStringList faltas = capturas::capturar(
        m.escritorio, {qEnvironmentVariable("TARVO_FOTOS"), llena ? u"llena"_s : u"vacia"_s,
                       qEnvironmentVariable("TARVO_FOTOS_SOLO").split(u',', Qt::SkipEmptyParts)});
    faltas.removeIf([](const QString& f) { return f.startsWith(u"BrowPLUs"); });  // the test's own
    EXPECT_TRUE(faltas.isEmpty()) << faltas.join(u'\n').toStdString();
  }
}

}  // namespace tarvo::prueba
