// The keyboard of a scale, by keys and mouse.
#include <QFile>

#include "MesaDeTeclados.h"

namespace tarvo::prueba {

TEST(TecladoVentana, TecleandoSePonenArticulosEnLasTeclas) {
  MesaDeTeclados t;
  const auto salida = t.aceptar({.tipo = kCedar, .grupo = u"MOSTRADOR"_s, .balanza = 2}, [&] {
    EXPECT_EQ(t.v->windowTitle(), u"Teclado de balanza nº 3  (MOSTRADOR)");
    EXPECT_EQ(t.foco(), u"lienzo");
    t.escribir(u"10"_s);
    EXPECT_EQ(t.foco(), u"Busca");
    t.tecla(Qt::Key_Return);
    EXPECT_EQ(t.lienzo().actual(), 2);  // the next one
    t.escribir(u"ber"_s);
    EXPECT_EQ(t.lista(u"articulos").filas(), 1);
    t.tecla(Qt::Key_Return);
    t.escribir(u"nada"_s);
    t.tecla(Qt::Key_Return);
    EXPECT_EQ(t.v->tira().texto(), u"«nada»: no hay ningún artículo así en la sección.");
    t.tecla(Qt::Key_Escape);
    EXPECT_EQ(t.foco(), u"lienzo");
    t.escribir(u"5"_s);
    t.tecla(Qt::Key_Return);
    t.tecla(Qt::Key_Z, Qt::ControlModifier);
    t.tecla(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(t.hace(2), u"NULO");
    t.tecla(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(t.v->tira().texto(), u"Rehecho: Tecla 2.");
  });
  ASSERT_TRUE(salida);
  EXPECT_TRUE(salida->Teclado.startsWith(u"001:021\r\n002:022\r\n003:999\r\n"));
  EXPECT_EQ(salida->Teclado.count(u'\n'), 80);
  EXPECT_TRUE(salida->HARDPLU.startsWith(u"001:0000010\r\n002:0000012\r\n003:\r\n"));
  EXPECT_EQ(salida->TARASME.count(u'\n'), 20);
}

TEST(TecladoVentana, LasFlechasAndanPorElDibujo) {
  const struct {
    int tipo;
    ArregloBirch arreglo;
    int de;
    Rumbo rumbo;
    int a;
  } casos[] = {{kRowan, {}, 1, Rumbo::Derecha, 10},
               {kRowan, {}, 1, Rumbo::Abajo, 2},
               {kRowan, {}, 1, Rumbo::Arriba, 1},
               {kRowan, {}, 108, Rumbo::Derecha, 117},  // onto the wide key
               {kRowan, {}, 125, Rumbo::Abajo, 117},
               {kCedar, {}, 5, Rumbo::Abajo, 6},  // across the aisle
               {kHazel, {}, 54, Rumbo::Derecha, 60},
               {kEbony, {}, 28, Rumbo::Arriba, 21},
               {kBirch, ArregloBirch::Arriba, 1, Rumbo::Arriba, 57},
               {kBirch, ArregloBirch::Abajo, 43, Rumbo::Abajo, 57},
               {kBirch, ArregloBirch::ALosLados, 15, Rumbo::Izquierda, 58}};
  for (const auto& c : casos)
    EXPECT_EQ(vecina(geometriaDe(c.tipo, c.arreglo), c.de, c.rumbo), c.a) << c.tipo << ' ' << c.de;
  for (const int tipo : {1, 2, 3, 4, 5, 6, 7, 8})
    for (const int arreglo : {0, 1, 2}) {
      const Geometria g = geometriaDe(tipo, static_cast<ArregloBirch>(arreglo));
      ASSERT_EQ(static_cast<int>(g.teclas.size()), TeclasDeFormulario(tipo));
      for (int n = 1; n <= TeclasDeFormulario(tipo); ++n) {
        EXPECT_EQ(teclaEn(g, g.tecla(n).center()), n) << tipo;
        EXPECT_TRUE(QRectF({0, 0}, g.tamano).contains(g.tecla(n)));
      }
    }
}

TEST(TecladoVentana, UnaTeclaSeMueveConElRatonYConElTeclado) {
  MesaDeTeclados t;
  t.abrirTeclado(kHazel, t.textosDe(u"1:12 2:13"_s));
  t.tecla(Qt::Key_F7);
  t.tecla(Qt::Key_Right);
  t.tecla(Qt::Key_Down);
  t.tecla(Qt::Key_Return);
  EXPECT_EQ(t.hace(8), u"TOTAL");
  EXPECT_EQ(t.hace(1), u"NULO");
  EXPECT_EQ(t.lienzo().actual(), 8);
  t.tecla(Qt::Key_F7);
  t.tecla(Qt::Key_Home);
  t.tecla(Qt::Key_Escape);  // it stays, and so does the window
  EXPECT_EQ(t.hace(8), u"TOTAL");
  t.arrastrar(t.lienzo(), t.centro(2), t.lienzo().mapToGlobal(t.centro(1)));
  EXPECT_EQ(t.hace(1), u"CLEAR");
  EXPECT_EQ(t.hace(2), u"NULO");
  auto* basura = t.control<QToolButton>(u"basura");
  t.arrastrar(t.lienzo(), t.centro(1), basura->mapToGlobal(basura->rect().center()));
  EXPECT_EQ(t.hace(1), u"NULO");
  t.arrastrar(t.lienzo(), t.centro(8), t.v->mapToGlobal(QPoint(1, 1)));  // nowhere
  EXPECT_EQ(t.hace(8), u"TOTAL");
  t.lienzo().irA(8);
  t.tecla(Qt::Key_Delete);
  EXPECT_EQ(t.hace(8), u"NULO");
  t.tecla(Qt::Key_F7);
  EXPECT_FALSE(t.lienzo().levantada());
  for (int i = 0; i < 4; ++i) t.tecla(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(t.hace(1), u"TOTAL");
  t.lienzo().irA(1);
  t.tecla(Qt::Key_F10, Qt::ShiftModifier);
  ASSERT_TRUE(QApplication::activePopupWidget());
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_B);  // its letter: delete
  EXPECT_EQ(t.hace(1), u"NULO");
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  t.v->close();  // as it was: nothing is asked
  EXPECT_TRUE(esperar([&] { return !t.escritorio.ventanas().cargada(u"Teclado"_s); }));
}

TEST(TecladoVentana, UnArticuloSeArrastraAUnaTeclaYAUnPluDirecto) {
  MesaDeTeclados t;
  t.abrirTeclado(kMaple, t.textosDe(u"1:12"_s));
  auto* vista = t.lista(u"articulos").vista();
  const auto fila = [&](int n) { return vista->visualRect(vista->model()->index(n, 1)).center(); };
  t.arrastrar(*vista->viewport(), fila(1), t.lienzo().mapToGlobal(t.centro(1)));
  EXPECT_EQ(t.hace(1), u"PLU directo: 1 · 0000005 PERA");
  t.control<QTabWidget>(u"fichas")->setCurrentIndex(1);
  QApplication::processEvents();
  auto& plus = t.lista(u"LisHplu");
  auto* destino = plus.vista();
  t.arrastrar(*vista->viewport(), fila(0),
              destino->viewport()->mapToGlobal(
                  destino->visualRect(destino->model()->index(1, 1)).center()));
  EXPECT_EQ(plus.texto(1, u"articulo"), u"0000003");
  EXPECT_EQ(plus.texto(0, u"teclas"), u"1");
}

TEST(TecladoVentana, ElPanelDiceElRangoYQuedaAbierto) {
  MesaDeTeclados t;
  t.abrirTeclado(kRowan, t.textosDe(u"1:131"_s));
  t.tecla(Qt::Key_F2);
  EXPECT_EQ(t.foco(), u"EntPan");
  t.escribir(u"21"_s);
  t.tecla(Qt::Key_Return);
  EXPECT_EQ(t.control<QLabel>(u"faltaEntPan")->text(),
            u"El valor entrado es incorrecto\nEl rango de valores es [ 1 ..20]");
  EXPECT_EQ(t.foco(), u"EntPan");
  t.responder(u"Acepto"_s);
  QTest::mouseClick(t.control<QPushButton>(u"Acepto"), Qt::LeftButton);  // it doesn't close
  EXPECT_EQ(t.hace(1), u"Operador: 1");
  t.volver();
  t.tecla(Qt::Key_F2);
  t.escribir(u"20"_s);
  t.tecla(Qt::Key_Return);
  EXPECT_EQ(t.hace(1), u"Operador: 20");
  EXPECT_EQ(t.foco(), u"lienzo");
  auto* que = t.control<QComboBox>(u"OpTpo");
  EXPECT_EQ(que->count(), 5);  // neither departments nor totals in Spanish
  t.tecla(Qt::Key_F2);
  que->setFocus();
  t.tecla(Qt::Key_End);
  Q_EMIT que->activated(que->currentIndex());
  EXPECT_EQ(t.foco(), u"funciones");
  t.tecla(Qt::Key_Down);
  t.tecla(Qt::Key_Return);
  EXPECT_EQ(t.hace(1), u"CLEAR");
  EXPECT_EQ(t.foco(), u"lienzo");
}

TEST(TecladoVentana, LasListasSoloAceptanLoQueVaEnUnaTecla) {
  MesaDeTeclados t;
  t.abrirTeclado(kCedar, t.textosDe(u"1:21"_s, u"1:5"_s));
  t.control<QTabWidget>(u"fichas")->setCurrentIndex(1);
  QString dicho;
  const auto poner = [&](ventanas::Parrilla& lista, const QString& campo, const QString& texto) {
    lista.vista()->setFocus();
    lista.vista()->setCurrentIndex(lista.modelo()->index(1, lista.modelo()->columna(campo)));
    QTest::keyClick(lista.vista(), Qt::Key_F2);
    qobject_cast<QLineEdit*>(QApplication::focusWidget())->selectAll();
    t.tecla(Qt::Key_Delete);
    t.escribir(texto);
    t.tecla(Qt::Key_Return);
    dicho = t.v->tira().texto();
    if (lista.editando()) t.tecla(Qt::Key_Escape);
    return lista.texto(1, campo);
  };
  auto& plus = t.lista(u"LisHplu");
  EXPECT_EQ(poner(plus, u"articulo"_s, u"2"_s), u"");
  EXPECT_EQ(dicho,
            u"Los artículos 1 y 2 son del sistema y no pueden ponerse en una tecla: elija otro.");
  EXPECT_EQ(poner(plus, u"articulo"_s, u"12345678"_s), u"");
  EXPECT_EQ(poner(plus, u"articulo"_s, u"11"_s), u"0000011");
  EXPECT_EQ(plus.texto(1, u"nombre"), u"COL");
  t.control<QTabWidget>(u"fichas")->setCurrentIndex(2);
  auto& taras = t.lista(u"LisTara");
  EXPECT_EQ(poner(taras, u"tara"_s, u"10000"_s), u"");
  EXPECT_EQ(poner(taras, u"tara"_s, u"120"_s), u"0120");
  EXPECT_EQ(poner(taras, u"tara"_s, u""_s), u"");
}

TEST(TecladoVentana, LoCopiadoDeOtroTecladoSoloTraePlusYTaras) {
  MesaDeTeclados t;
  Teclado otro(125);
  otro.codigo(1, 131);
  otro.articulo(1, 12);
  t.abrirTeclado(kHazel, t.textosDe(u"1:21"_s, u"1:5"_s));
  QApplication::clipboard()->setText(u"hola"_s);
  t.tecla(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(t.v->tira().texto(), u"El portapapeles no contiene datos de un teclado");
  QApplication::clipboard()->setText(otro.portapapeles());
  t.responder(u"Cancelo"_s);
  t.tecla(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(t.textoModal,
            u"El teclado copiado en el portapapeles no es del mismo tipo: Se copiarán sólo las "
            u"asignaciobes de PLU y TARA");
  EXPECT_EQ(t.hace(1), u"PLU directo: 1 · 0000005 PERA");
  t.volver();
  t.responder(u"Acepto"_s);
  t.tecla(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(t.hace(1), u"PLU directo: 1 · 0000012 BERZA");
  t.volver();
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  t.tecla(Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(QApplication::clipboard()->text().startsWith(u"084|001:021\r\n"));

  // The same in a file, whichever way its lines end.
  const QString ruta = t.ruta(u"uno.txt"_s);
  t.v->guardarEn(ruta);
  t.tecla(Qt::Key_Delete);
  t.v->leerDe(ruta);
  EXPECT_EQ(t.hace(1), u"PLU directo: 1 · 0000005 PERA");
  QFile f(ruta);
  ASSERT_TRUE(f.open(QIODevice::ReadOnly));
  const QByteArray unix = f.readAll().replace("\r\n", "\n");
  f.close();
  ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.write(unix) > 0);
  f.close();
  t.tecla(Qt::Key_Delete);
  t.v->leerDe(ruta);
  EXPECT_EQ(t.hace(1), u"PLU directo: 1 · 0000005 PERA");
  // A damaged one is refused whole, and its line named: it would empty keys.
  for (const QByteArray& malo :
       {QByteArray(100'000, '1'), QByteArray(unix).replace("002:999", "002:-5"),
        QByteArray(unix).replace("003:999", "003:xx"), QByteArray(unix).replace("004:999\n", ""),
        QByteArray(unix).replace("005:999", "085:999"), QByteArray("084|001:021\n|||")}) {
    ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.write(malo) > 0);
    f.close();
    t.v->leerDe(ruta);
    EXPECT_EQ(t.v->tira().estado(), ventanas::Estado::Mal) << malo.first(40).data();
    EXPECT_EQ(t.hace(1), u"PLU directo: 1 · 0000005 PERA");
    EXPECT_EQ(malo.contains("-5"), t.v->tira().texto().contains(u"en la línea 2, «002:-5»"));
  }
}

TEST(TecladoVentana, LasTeclasQueNoVendenSeSenalanYSeRellenan) {
  MesaDeTeclados t;
  t.abrirTeclado(kCedar, t.textosDe(u"1:21 2:22 3:23 4:24 5:12 6:500"_s, u"1:3 2:99 3:2 4:3"_s));
  auto& avisos = t.lista(u"avisos");
  QStringList dichos;
  for (int i = 0; i < avisos.filas(); ++i)
    dichos << avisos.texto(i, u"tecla") + u' ' + avisos.texto(i, u"que");
  EXPECT_EQ(dichos.join(u'\n').toStdString(),
            u" Ninguna tecla hace de: 0, 1, 2, 3, 4, 5, 6, 7, 8, 9. Sin ellas no se puede vender: "
            u"póngalas en alguna tecla.\n"
            u"1 El artículo 3 también está en la tecla 4.\n"
            u"2 El artículo 99 ya no está en la sección.\n"
            u"3 El artículo 2 es del sistema.\n"
            u"4 El artículo 3 también está en la tecla 1.\n"
            u"6 El código 500 no es de esta balanza."_s.toStdString());
  EXPECT_EQ(t.control<QTabWidget>(u"fichas")->tabText(4), u"Avisos (6)");
  EXPECT_EQ(t.lienzo().cara(1).departamento, 1);
  // By name: those that have no key yet, on the keys that sell nothing.
  t.tecla(Qt::Key_F12);
  t.control<QComboBox>(u"orden")->setCurrentIndex(1);
  QTest::mouseClick(t.control<QPushButton>(u"rellenar"), Qt::LeftButton);
  EXPECT_EQ(t.v->tira().texto(), u"4 artículos puestos en las teclas.");
  EXPECT_EQ(t.hace(2), u"PLU directo: 2 · 0000010 ACELGA");
  EXPECT_EQ(t.hace(3), u"PLU directo: 3 · 0000012 BERZA");
  EXPECT_EQ(t.hace(5), u"TOTAL");
  EXPECT_EQ(t.hace(7), u"PLU directo: 5 · 0000011 COL");
  QTest::mouseClick(t.control<QPushButton>(u"rellenar"), Qt::LeftButton);
  EXPECT_EQ(t.v->tira().texto(),
            u"No hay nada que poner: esos artículos ya tienen tecla, o no hay ninguno.");
  // A name changed in another window is seen on coming back.
  t.sql(u"delete from PLUSES where CODPLU=10"_s);
  QEvent vuelve(QEvent::WindowActivate);
  QApplication::sendEvent(t.v, &vuelve);
  EXPECT_EQ(t.lienzo().cara(2).reparo, Reparo::NoEsta);
  t.sql(u"delete from PLUSES where CODPLU>2"_s);
  QApplication::sendEvent(t.v, &vuelve);
  EXPECT_EQ(t.lienzo().cara(2).reparo, std::nullopt) << "there are no articles yet";
}

// TOTAL taken away is a notice, and is asked about once.
TEST(TecladoVentana, SinTotalNoSeAceptaSinPreguntar) {
  MesaDeTeclados t;
  TextosTeclado suyos{TecladoDefecto(kCedar, Idioma::Espanol), HardPluDefecto(), TarasDefecto()};
  const auto abrir = [&](const char16_t* respuesta) {
    return t.aceptar({.tipo = kCedar, .textos = suyos}, [&] {
      int total = 1;
      while (t.hace(total) != u"TOTAL"_s && total < t.lienzo().teclas()) ++total;
      t.lienzo().irA(total);
      t.tecla(Qt::Key_Delete);
      if (!respuesta) return;
      EXPECT_TRUE(t.lista(u"avisos").texto(0, u"que").contains(u"hace de: TOTAL."));
      t.responder(u"Cancelo"_s);
      QTest::mouseClick(t.control<QPushButton>(u"Acepto"), Qt::LeftButton);
      EXPECT_TRUE(t.textoModal.startsWith(u"Ya ninguna tecla hace de: TOTAL."));
      t.responder(QString::fromUtf16(respuesta));
    });
  };
  const auto salida = abrir(u"Acepto");
  ASSERT_TRUE(salida);
  suyos = *salida;
  ASSERT_TRUE(abrir(nullptr)) << "it was missing already";
}

TEST(TecladoVentana, CtrlZDeshacePrimeroLoBuscado) {
  MesaDeTeclados t;
  t.abrirTeclado(kCedar, t.textosDe(u"1:12"_s));
  t.tecla(Qt::Key_Delete);
  t.escribir(u"c"_s);
  EXPECT_EQ(t.foco(), u"Busca");
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(t.control<QLineEdit>(u"Busca")->text(), QString());
  EXPECT_NE(t.hace(1), u"TOTAL");
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(t.hace(1), u"TOTAL");
}

TEST(TecladoVentana, EnUnaEbonyIntroPasaALaTeclaSiguiente) {
  MesaDeTeclados t;
  const TextosTeclado antes{u"07:T:000120\r\n28:P:000005\r\n"_s, u"otro"_s, u"mas"_s};
  const auto salida = t.aceptar({.tipo = kEbony, .textos = antes}, [&] {
    EXPECT_EQ(t.hace(7), u"Tara Directa (120 g)");
    t.lienzo().irA(28);
    t.tecla(Qt::Key_Return);
    EXPECT_EQ(t.foco(), u"EntNum");
    t.escribir(u"2"_s);
    t.tecla(Qt::Key_Return);
    EXPECT_FALSE(t.control<QLabel>(u"faltaEntNum")->text().isEmpty());
    t.control<QLineEdit>(u"EntNum")->selectAll();
    t.escribir(u"10"_s);
    t.tecla(Qt::Key_Return);
    EXPECT_EQ(t.lienzo().actual(), 1);
    EXPECT_EQ(t.foco(), u"tpotec");  // a key that does nothing has no number
    t.lienzo().irA(28);
    t.control<QLineEdit>(u"EntNum")->setFocus();
    t.escribir(u"7"_s);
    t.tecla(Qt::Key_Escape);  // the key stays as it was
    EXPECT_EQ(t.foco(), u"lienzo");
    t.lienzo().irA(1);
    t.escribir(u"12"_s);
    t.tecla(Qt::Key_Return);
  });
  ASSERT_TRUE(salida);
  EXPECT_EQ(salida->Teclado.section(u"\r\n"_s, 0, 1), u"01:P:000012\r\n02:N:000000");
  EXPECT_EQ(salida->Teclado.section(u"\r\n"_s, 27, 27), u"28:P:000010");
  EXPECT_EQ(salida->HARDPLU, antes.HARDPLU);
}

}  // namespace tarvo::prueba
