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
            u"El asistente ha detectado 3 canales disponibles en su equipo y 1 acceso de red, y 2 "
            u"grupos de "
            u"balanzas conectados directamente.");
  EXPECT_FALSE(t.seVe(u"Configurar"));
  const QString antes = t.grupos();
  t.pulsar(u"StartPoll");
  EXPECT_TRUE(t.seVe(u"Configurar"));
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
            u"Va a borrar 2 grupos, con sus ofertas, sus tareas y las ventas que aún no están en "
            u"ningún periodo. No se puede deshacer. ¿Sustituye los grupos?");
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
  EXPECT_EQ(t.grupos(), u"1 1 2 - 0");
}

TEST(WizInicio, LoMalEscritoSeDiceJuntoAlCampoYNoAbreNada) {
  const std::pair<const char16_t*, const char16_t*> casos[] = {
      {u"balanza", u"No se entiende: balanza."},
      {u"h:1, x y:0", u"No se entiende: x, y:0."},
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
