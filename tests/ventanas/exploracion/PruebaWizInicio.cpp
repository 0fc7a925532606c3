// The assistant, from its first page to the groups that it makes.
#include "MesaDeExploracion.h"

namespace tarvo::prueba {

using simulador::Tipo;

TEST(WizInicio, BuscaYEstrenaLaTienda) {
  MesaDeExploracion t;
  t.maquina(u"/dev/ttyS0"_s, Tipo::Balanzas, 3, {0, 2});
  t.maquina(u"balanza:3000"_s, Tipo::Ebony, 4, {1});
  t.abrir();
  auto* puertos = t.control<QListWidget>(u"puertos");
  ASSERT_EQ(puertos->count(), 4);
  puertos->setFocus();
  puertos->setCurrentRow(3);
  QTest::keyClick(puertos, Qt::Key_Space);
  t.control<QPlainTextEdit>(u"otros")->setPlainText(u"balanza:3000\n/dev/ttyS0"_s);
  QTest::keyClick(puertos, Qt::Key_Return);  // the default button
  EXPECT_TRUE(t.seVe(u"frmFasePoll"));
  auto& lineas = *t.control<ventanas::Parrilla>(u"lineas");
  EXPECT_EQ(lineas.filas(), 4);  // three ports and one address: each once
  ASSERT_TRUE(t.hasta([&] { return t.seVe(u"Resumen"); }));
  EXPECT_EQ(lineas.texto(0, u"estado"), u"Encontrado");
  EXPECT_EQ(lineas.texto(0, u"que"), u"Balanzas VEK: la estación 3, con las balanzas 0 y 2.");
  EXPECT_EQ(lineas.texto(1, u"estado"), u"Nada");
  EXPECT_EQ(t.control<QLabel>(u"Resumen")->text(),
            u"El asistente ha detectado 3 canales disponibles en su equipo y 1 acceso de red "
            u"(contesta 1), y 2 "
            u"grupos de "
            u"balanzas conectados directamente.");
  EXPECT_FALSE(t.seVe(u"Configurar"));
  const QString antes = t.grupos();
  t.pulsar(u"StartPoll");
  EXPECT_TRUE(t.seVe(u"Configurar"));
  EXPECT_EQ(
      t.control<QLabel>(u"queHara")->text(),
      u"Con lo encontrado se configurarán los canales y se crearán los primeros grupos de la "
      u"tienda. Los grupos nuevos irán a la sección 1 (SECCIÓN ÚNICA). De las balanzas VEK el "
      u"modelo no se puede saber: revíselo en el grupo.");
  EXPECT_FALSE(t.seVe(u"sustituir"));  // there is nothing yet to add to
  EXPECT_EQ(t.control<ventanas::Parrilla>(u"hallados")->filas(), 2);
  EXPECT_EQ(t.grupos(), antes);
  t.pulsar(u"StartPoll");
  EXPECT_EQ(t.grupos(), u"1 1 2 - 0,2 | 2 2 3 balanza:3000 1");
  EXPECT_EQ(t.v->tira().texto(), u"2 grupos creados.");
  EXPECT_TRUE(t.control<QPlainTextEdit>(u"hecho")->toPlainText().startsWith(
      u"Creado el grupo 1 «Grupo 0001 creado por  asistente» en Canal 1 (/dev/ttyS0)"));
  t.pulsar(u"StartPoll");
  EXPECT_TRUE(esperar([&] { return !t.escritorio.ventanas().cargada(u"WizInicio"_s); }));
}

TEST(WizInicio, LoQueHaySoloSeBorraSiSeHaVistoYSeDice) {
  MesaDeExploracion t;
  t.sql(u"update GRUPOS set NOMGPO='MOSTRADOR'"_s);
  t.grupo({.codigo = 8, .nombre = u"PESCADO"});
  t.oferta({.grupo = 8, .codigo = 5, .precio = 1, .desde = 43000, .hasta = 43001});
  t.maquina(u"/dev/ttyS1"_s, Tipo::Balanzas, 0, {0});
  t.abrir();
  t.hastaResultados();
  EXPECT_TRUE(t.control<QRadioButton>(u"anadir")->isChecked());
  EXPECT_FALSE(t.seVe(u"seVan"));
  t.control<QRadioButton>(u"sustituir")->click();
  auto& seVan = *t.control<ventanas::Parrilla>(u"seVan");
  ASSERT_TRUE(seVan.isVisible());
  ASSERT_EQ(seVan.filas(), 2);
  EXPECT_EQ(seVan.texto(1, u"nombre") + seVan.texto(1, u"ofertas"), u"PESCADO1");
  const QString antes = t.grupos();
  t.responder(u"Cancelo"_s, [&] { t.pulsar(u"StartPoll"); });
  EXPECT_EQ(t.textoModal,
            u"Va a borrar 2 grupos, con su nombre, su sección y su conexión, y con los operadores, "
            u"los teclados, las etiquetas, las líneas de cabecera y las opciones de sus máquinas.\n"
            u"Los grupos son: (1) MOSTRADOR y (8) PESCADO.\nCon ellos se van 1 máquina y 1 "
            u"oferta.\nDe esas máquinas, 1 no ha contestado o no se "
            u"ha buscado.\nLos grupos nuevos irán a la sección 1 (SECCIÓN ÚNICA).\nNo se puede "
            u"deshacer. ¿Sustituye los grupos?");
  EXPECT_EQ(t.grupos(), antes);
  t.control<QRadioButton>(u"anadir")->click();
  EXPECT_FALSE(seVan.isVisible());
  t.pulsar(u"StartPoll");
  EXPECT_EQ(t.grupos(), antes + u" | 9 1 2 - 0"_s);
  t.v->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

  // Found again, its scales are those of group 9, and only the others would be created.
  t.maquina(u"/dev/ttyS0"_s, Tipo::Balanzas, 3, {0, 2});
  t.abrir();
  t.pulsar(u"StartPoll");
  ASSERT_TRUE(t.hasta([&] { return t.seVe(u"Resumen"); }));
  EXPECT_TRUE(t.control<QLabel>(u"Consecuencia")
                  ->text()
                  .contains(u"Se creará 1 grupo de balanzas, según los resultados de la "
                            u"exploración.  Las balanzas de 1 acceso ya son de un grupo"))
      << t.control<QLabel>(u"Consecuencia")->text().toStdString();
  t.pulsar(u"StartPoll");
  const auto& hallados = *t.control<ventanas::Parrilla>(u"hallados");
  EXPECT_EQ(hallados.texto(0, u"grupo"), u"Se creará");
  EXPECT_EQ(hallados.texto(1, u"grupo"), u"Ya es del grupo 9");
  t.lejos.erase(u"/dev/ttyS0"_s);
  t.v->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

  t.abrir();
  t.hastaResultados();
  t.control<QRadioButton>(u"sustituir")->click();
  t.responder(u"Acepto"_s, [&] { t.pulsar(u"StartPoll"); });
  EXPECT_EQ(t.grupos(), u"9 1 2 - 0");
  EXPECT_EQ(t.v->tira().texto(), u"1 grupo que se queda como estaba y 2 grupos borrados.");
  EXPECT_EQ(t.control<QPlainTextEdit>(u"hecho")->toPlainText().section(u'\n', 0, 1),
            u"(9) Grupo 0009 creado por  asistente se queda como estaba\nBorrado el grupo 1 "
            u"«MOSTRADOR»");
}

// A search that was cut short, in a shop whose scales have settings that no answer tells.
TEST(WizInicio, SustituirDiceLoQueSeVaYDejaLoQueEsLoMismo) {
  MesaDeExploracion t;
  t.seccion(1, u"FRUTERIA"_s).seccion(2, u"PESCADERIA"_s);
  t.sql(u"update GRUPOS set NOMGPO='MOSTRADOR'"_s);
  t.grupo({.codigo = 3, .nombre = u"PESCADO", .tipo = 4, .remoto = 3, .acceso = u"pescado:1"_s});
  t.sql(u"insert into BZAS (SUGPO, NMBZA, TIPO, MESSAG) values (3, 1, 8, 'HOLA')"_s);
  t.grupo({.codigo = 5, .nombre = u"CARNE", .remoto = 3, .acceso = u"carne:1"_s});
  for (const int numero : {0, 1, 4})
    t.sql(u"insert into BZAS (SUGPO, NMBZA, TIPO) values (5, ?, 3)"_s, numero);
  t.grupo({.codigo = 6, .nombre = u"CAJAS", .tipo = 3, .remoto = 3, .acceso = u"cajas:1"_s});
  t.sql(u"insert into BZAS (SUGPO, NMBZA, TIPO) values (6, 1, 1)"_s);
  t.aplicacion.catalogo().cambios().guardaPorGrupo(
      {[](int) { return Resultado<>(); },
       {},
       [](int grupo) -> Resultado<std::optional<qint64>> {
         return grupo == 5 ? std::optional<qint64>(1250) : std::nullopt;
       }});
  t.maquina(u"pescado:1"_s, Tipo::Balanzas, 0, {1});
  t.maquina(u"carne:1"_s, Tipo::Balanzas, 0, {0, 1});
  t.abrir();
  auto* puertos = t.control<QListWidget>(u"puertos");
  for (int i = 0; i < 4; ++i) puertos->item(i)->setCheckState(Qt::Unchecked);
  t.control<QPlainTextEdit>(u"otros")->setPlainText(u"pescado:1 carne:1 cajas:1 nadie:1"_s);
  t.pulsar(u"StartPoll");
  ASSERT_TRUE(t.hasta([&] { return t.fabrica.cables.size() == 4; }));
  t.hasta([] { return false; }, 3);
  t.pulsar(u"Parar");
  ASSERT_TRUE(t.hasta([&] { return t.seVe(u"Resumen"); }));
  EXPECT_EQ(t.control<QLabel>(u"fase")->text(), u"Exploración parada: 3 de 4 accesos explorados");
  EXPECT_TRUE(t.control<QLabel>(u"Resumen")->text().contains(u"3 accesos de red (contestan 2)"));
  t.control<ventanas::Parrilla>(u"lineas")->irA(2);
  EXPECT_EQ(t.control<QLabel>(u"detalle")->text(),
            u"cajas:1: El puerto funciona, pero nadie contesta: compruebe que la máquina esté "
            u"encendida y a la misma velocidad.");
  t.pulsar(u"StartPoll");
  t.control<QRadioButton>(u"sustituir")->click();
  const auto& hallados = *t.control<ventanas::Parrilla>(u"hallados");
  EXPECT_EQ(hallados.texto(0, u"grupo"), u"(3) PESCADO se queda como está");
  EXPECT_EQ(hallados.texto(1, u"grupo"), u"Se creará");
  const auto& seVan = *t.control<ventanas::Parrilla>(u"seVan");
  QStringList filas;
  for (int i = 0; i < seVan.filas(); ++i)
    filas << seVan.texto(i, u"nombre") + u' ' + seVan.texto(i, u"callan");
  EXPECT_EQ(filas.join(u'/'), u"MOSTRADOR no se ha explorado/CARNE 4/CAJAS cajas: no se buscan");

  // Nothing is applied yet: back, and there again.
  t.pulsar(u"Atras");
  EXPECT_TRUE(t.seVe(u"lineas") && t.seVe(u"Resumen"));
  t.pulsar(u"Atras");
  EXPECT_TRUE(t.seVe(u"otros"));
  EXPECT_FALSE(t.seVe(u"Atras"));
  t.control<QPlainTextEdit>(u"otros")->setPlainText(u"pescado:1 carne:1 nadie:1"_s);
  t.pulsar(u"StartPoll");
  ASSERT_TRUE(t.hasta([&] { return t.fabrica.cables.size() == 7; }));
  t.hasta([] { return false; }, 3);
  t.pulsar(u"Parar");
  ASSERT_TRUE(t.hasta([&] { return t.seVe(u"Resumen"); }));
  t.pulsar(u"StartPoll");
  t.control<QRadioButton>(u"sustituir")->click();
  const QString pescado = t.leer(u"select * from GRUPOS where CODGPO=3"_s) +
                          t.leer(u"select * from BZAS where SUGPO=3"_s);
  const QString antes = t.grupos();
  t.responder(u"-"_s, [&] { t.pulsar(u"StartPoll"); });  // Return: its default button
  EXPECT_EQ(t.textoModal.section(u'\n', 0, 0),
            u"La exploración se paró: solo se han explorado 2 de 3 accesos.");
  EXPECT_EQ(t.textoModal.section(u'\n', 2, 7),
            u"Los grupos son: (1) MOSTRADOR, (5) CARNE y (6) CAJAS.\nCon ellos se van 5 "
            u"máquinas.\nDe esas máquinas, 3 no han contestado o no se han "
            u"buscado.\nTambién se van sus ventas que aún no están en ningún periodo: 12,50 "
            u"Eur.\n(3) PESCADO se queda como está.\nLos grupos nuevos irán a la sección 1 "
            u"(FRUTERIA).");
  EXPECT_EQ(t.grupos(), antes);
  t.responder(u"Acepto"_s, [&] { t.pulsar(u"StartPoll"); });
  EXPECT_EQ(t.v->tira().texto(),
            u"1 grupo creado, 1 grupo que se queda como estaba y 3 grupos borrados.");
  EXPECT_EQ(t.grupos(), u"1 1 3 carne:1 0,1 | 3 4 3 pescado:1 1");
  EXPECT_EQ(t.leer(u"select * from GRUPOS where CODGPO=3"_s) +
                t.leer(u"select * from BZAS where SUGPO=3"_s),
            pescado);
}

TEST(WizInicio, LoMalEscritoSeDiceJuntoAlCampoYNoAbreNada) {
  const std::pair<const char16_t*, const char16_t*> casos[] = {
      {u"balanza", u"No se entiende: balanza."},
      {u"h:1, x y:0", u"No se entiende: x, y:0."},
      {u"192.168.1.300:80", u"No se entiende: 192.168.1.300:80."},
      {u"1.256.0.1-2:80", u"No se entiende: 1.256.0.1-2:80."},
      {u"10.0.0.1-250:1-2", u"Son demasiados: caben 256 accesos como mucho."},
      {u"", u"Señale algún puerto, o escriba aquí algún acceso."}};
  MesaDeExploracion t;
  t.abrir();
  auto* puertos = t.control<QListWidget>(u"puertos");
  for (int i = 0; i < 4; ++i) puertos->item(i)->setCheckState(Qt::Unchecked);
  for (const auto& [texto, dice] : casos) {
    t.control<QPlainTextEdit>(u"otros")->setPlainText(QString::fromUtf16(texto));
    t.pulsar(u"StartPoll");
    EXPECT_TRUE(t.control<QLabel>(u"faltaotros")->text().startsWith(QString::fromUtf16(dice)))
        << t.control<QLabel>(u"faltaotros")->text().toStdString();
    EXPECT_TRUE(t.seVe(u"frmfasePre"));
  }
  EXPECT_TRUE(t.fabrica.cables.empty());
  t.control<QPlainTextEdit>(u"otros")->setPlainText(u"balanza:3000"_s);
  t.responder(u"Cancelo"_s, [&] { QTest::keyClick(puertos, Qt::Key_Escape); });
  EXPECT_EQ(t.textoModal, u"¿Abandonar los cambios realizados?");
  EXPECT_TRUE(t.v->isVisible());
}

TEST(WizInicio, SePuedePararYVolverAEmpezar) {
  MesaDeExploracion t;
  t.maquina(u"/dev/ttyS0"_s, Tipo::Balanzas, 0, {0});
  t.abrir();
  t.pulsar(u"StartPoll");
  ASSERT_TRUE(t.hasta([&] { return t.fabrica.cables.size() == 2; }));
  t.hasta([] { return false; }, 3);
  t.pulsar(u"Parar");
  ASSERT_TRUE(t.hasta([&] { return t.seVe(u"Resumen"); }));
  EXPECT_EQ(t.v->tira().texto(),
            u"La exploración se ha parado: esto es lo encontrado hasta ahora.");
  EXPECT_EQ(t.control<ventanas::Parrilla>(u"lineas")->texto(1, u"estado"), u"Sin explorar");
  EXPECT_TRUE(t.fabrica.cables[1]->destruido);
  t.pulsar(u"Cancelar");
  EXPECT_TRUE(t.seVe(u"frmfasePre"));
  // Escape in the middle closes the line and begins anew; the second one closes the window.
  t.pulsar(u"StartPoll");
  t.hasta([] { return false; }, 3);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_TRUE(t.seVe(u"frmfasePre"));
  ASSERT_TRUE(t.hasta([&] { return t.control<QPushButton>(u"StartPoll")->isEnabled(); }));
  EXPECT_TRUE(t.fabrica.cables.back()->destruido);
  const QString antes = t.grupos();
  QTest::keyClick(t.control<QWidget>(u"puertos"), Qt::Key_Escape);
  EXPECT_TRUE(esperar([&] { return !t.escritorio.ventanas().cargada(u"WizInicio"_s); }));
  EXPECT_EQ(t.grupos(), antes);
}

TEST(WizInicio, DiceQueHayComunicacionesEnMarcha) {
  MesaDeExploracion t;
  t.fondo->ajustes.de<enlace::AjustesCables>().canales[0].Device = TipoAcceso::Directo;
  t.sql(u"update GRUPOS set remoto=2, canal=1"_s);
  t.abrir();
  EXPECT_FALSE(t.seVe(u"ocupadas"));
  t.aplicacion.gestcomm().cambiaronCanales();
  t.aplicacion.gestcomm().CambioAModo(true);
  ASSERT_EQ(t.aplicacion.gestcomm().NuevaTarea(1, true, 0, 0, TipoTarea::TxHora),
            motor::Pedida::EnCola);
  EXPECT_TRUE(t.hasta([&] { return t.seVe(u"ocupadas"); }, 5));
}

}  // namespace tarvo::prueba
