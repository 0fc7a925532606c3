// The editor of labels, by keys and clicks.
#include "MesaDeEtiquetas.h"

namespace tarvo::prueba {

TEST(EditorDeEtiquetas, MoverDeshacerRehacerYGuardar) {
  MesaDeEtiquetas t;
  auto* v = t.abrir(PuertaEdiEtqu());
  auto& l = t.lienzo(v);
  l.setFocus();
  t.tecla(Qt::Key_PageDown);
  ASSERT_EQ(l.elegidos(), std::vector<size_t>{0});
  EXPECT_EQ(t.lista(v, u"Campos").filasElegidas(), std::vector<int>{0});
  for (const auto* w : v->findChildren<QWidget*>())
    EXPECT_FALSE(w->accessibleName().contains(u"[*]")) << w->objectName().toStdString();
  t.tecla(Qt::Key_Right);
  t.tecla(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(t.control<QLabel>(v, u"LbMov").text(), u">>(011,028)");
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(t.lista(v, u"Campos").texto(0, u"y"), u"20");
  t.tecla(Qt::Key_Y, Qt::ControlModifier);
  t.tecla(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(t.campos(u"DOS"_s), t.kCabecera + u"010110280140000\r\n150050011000602\r\n"_s);
  // Back to what was stored before, which now is a change.
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(t.lista(v, u"Campos").texto(0, u"x"), u"10");
  t.responder(u"Cancelo"_s);
  EXPECT_FALSE(v->descargar());
  EXPECT_EQ(t.textoModal, u"Al salir se perderán los cambios: ¿Está seguro?");
  t.responder(u"Acepto"_s);
  EXPECT_TRUE(v->descargar());
}

// Each row: from where, how far, and the lines of the format then.
TEST(EditorDeEtiquetas, ArrastrarConElRaton) {
  const QString peso = MesaDeEtiquetas::kPeso, marco = u"150050011000602\r\n"_s;
  const QString cabecera = MesaDeEtiquetas::kCabecera;
  const struct {
    const char* que;
    std::function<QPoint(Lienzo&)> desde;
    QPoint puntos;
    Qt::KeyboardModifiers mandos;
    QString queda;
  } casos[] = {
      {"a field",
       [](Lienzo& l) { return MesaDeEtiquetas::centro(l, 0); },
       {20, 100},
       Qt::AltModifier,
       cabecera + u"010301200140000\r\n"_s + marco},
      {"snapping to the left of the frame",
       [](Lienzo& l) { return MesaDeEtiquetas::centro(l, 0); },
       {-4, 200},
       {},
       cabecera + u"010052200140000\r\n"_s + marco},
      {"the left edge",
       [](Lienzo& l) { return l.enVista({0, 200}).toPoint(); },
       {-300, 0},
       {},
       cabecera + peso + marco},
      {"the left edge to the right",
       [](Lienzo& l) { return l.enVista({0, 200}).toPoint(); },
       {40, 0},
       {},
       u"001510000000000\r\n"_s + peso + marco},
      {"the upper edge",
       [](Lienzo& l) { return l.enVista({150, 0}).toPoint(); },
       {0, 25},
       {},
       u"001910250000000\r\n"_s + peso + marco},
  };
  for (const auto& c : casos) {
    MesaDeEtiquetas t;
    auto* v = t.abrir(PuertaEdiEtqu());
    auto& l = t.lienzo(v);
    v->resize(1280, 1100);
    QApplication::processEvents();
    t.arrastrar(l, c.desde(l), c.puntos * l.zoom() / 100, c.mandos);
    t.tecla(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(t.campos(u"DOS"_s).toStdString(), c.queda.toStdString()) << c.que;
  }
}

// Several fields are moved together; Escape gives a drag up; a click chooses one of them.
TEST(EditorDeEtiquetas, VariosALaVez) {
  MesaDeEtiquetas t;
  auto* v = t.abrir(PuertaEdiEtqu());
  auto& l = t.lienzo(v);
  v->resize(1280, 1100);
  QApplication::processEvents();
  auto& lista = t.lista(v, u"Campos");
  const auto xs = [&] { return lista.texto(0, u"x") + u' ' + lista.texto(1, u"x"); };
  l.setFocus();
  t.tecla(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(lista.filasElegidas().size(), 2U);
  const QPoint peso = t.centro(l, 0);
  QTest::mousePress(l.viewport(), Qt::LeftButton, {}, peso);
  QMouseEvent mueve(QEvent::MouseMove, peso + QPoint(60, 60), QPointF(), Qt::NoButton,
                    Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(l.viewport(), &mueve);
  t.tecla(Qt::Key_Escape);
  QTest::mouseRelease(l.viewport(), Qt::LeftButton, {}, peso + QPoint(60, 60));
  EXPECT_EQ(xs(), u"10 5");
  t.arrastrar(l, t.centro(l, 0), QPoint(20, 0) * l.zoom() / 100, Qt::AltModifier);
  EXPECT_EQ(xs(), u"30 25");
  v->findChild<QAction*>(u"Alinear"_s)->trigger();
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  QTest::keyClick(menu, Qt::Key_Return);
  EXPECT_EQ(xs(), u"25 25");
  QTest::mouseClick(l.viewport(), Qt::LeftButton, {}, t.centro(l, 0));
  EXPECT_EQ(l.elegidos(), std::vector<size_t>{0});
  t.tecla(Qt::Key_Down, Qt::AltModifier);
  EXPECT_EQ(lista.texto(1, u"campo"), u"PESO");
  EXPECT_EQ(l.elegidos(), std::vector<size_t>{1});
}

TEST(EditorDeEtiquetas, UnaPosicionNegativaNoSeGuardaNiSeCopia) {
  MesaDeEtiquetas t;
  auto* v = t.abrir(PuertaEdiEtqu());
  auto& l = t.lienzo(v);
  l.setFocus();
  t.tecla(Qt::Key_PageDown);
  for (int i = 0; i < 3; ++i) t.tecla(Qt::Key_Up, Qt::ShiftModifier);
  QApplication::clipboard()->setText(u"nada"_s);
  v->findChild<QAction*>(u"CopiarEtiqueta"_s)->trigger();
  EXPECT_EQ(v->tira().texto(), u"Los datos no son adecuados: no se realizó la copia");
  EXPECT_EQ(QApplication::clipboard()->text(), u"nada");
  const QString antes = t.campos(u"DOS"_s);
  t.responder(u"Cancelo"_s);
  t.tecla(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(t.textoModal, u"¿Eliminar los campos con posiciones negativas?");
  EXPECT_EQ(t.campos(u"DOS"_s), antes);
  t.activar(v);
  l.setFocus();
  t.responder(u"Acepto"_s);
  t.tecla(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(t.campos(u"DOS"_s), t.kCabecera + u"150050011000602\r\n"_s);
}

TEST(EditorDeEtiquetas, AnadirCamposYSusLimites) {
  MesaDeEtiquetas t;
  auto* v = t.abrir(PuertaEdiEtqu());
  auto& l = t.lienzo(v);
  l.setFocus();
  for (int i = 0; i < 5; ++i) t.elegirEntrada(Qt::Key_Insert, u"CÓDIGO DE BARRAS"_s);
  EXPECT_EQ(t.lista(v, u"Campos").filas(), 6);
  EXPECT_TRUE(v->tira().texto().startsWith(u"De CÓDIGO DE BARRAS no caben más de 4"_s))
      << v->tira().texto().toStdString();
  // A text line asks for its text.
  t.alAbrirse([&](QWidget* w) {
    auto& textos = t.lista(w, u"Textos");
    textos.irA(textos.filaDe(5));
    QTest::keyClick(textos.vista(), Qt::Key_Return);
  });
  t.elegirEntrada(Qt::Key_Insert, u"LÍNEA TEXTO"_s);
  t.activar(v);
  EXPECT_EQ(t.lista(v, u"Campos").texto(6, u"campo"), u"LÍNEA TEXTO: PESO");
  l.setFocus();
  while (t.lista(v, u"Campos").filas() < 30) t.elegirEntrada(Qt::Key_Insert, u"FECHA"_s);
  t.tecla(Qt::Key_Insert);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  EXPECT_EQ(v->tira().texto(), u"No es posible añadir más campos");
  // Delete takes the chosen ones; one step brings them back.
  l.elegir({2, 4, 29});
  t.tecla(Qt::Key_Delete);
  EXPECT_EQ(t.lista(v, u"Campos").filas(), 27);
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(t.lista(v, u"Campos").filas(), 30);
}

// Fields go from one format to another; a whole one takes the place of the present one.
TEST(EditorDeEtiquetas, ElPortapapeles) {
  MesaDeEtiquetas t;
  auto* v = t.abrir(PuertaEdiEtqu());
  auto& l = t.lienzo(v);
  l.setFocus();
  l.elegir({0});
  t.tecla(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), t.kPeso);
  t.tecla(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(t.lista(v, u"Campos").texto(2, u"x"), u"18");  // beside its original
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  v->findChild<QAction*>(u"CopiarEtiqueta"_s)->trigger();
  const QString entera = QApplication::clipboard()->text();
  EXPECT_EQ(entera, t.campos(u"DOS"_s) + u"\r\nJT:"_s);
  t.lista(v).irA(1);
  EXPECT_EQ(t.lista(v, u"Campos").filas(), 0);
  for (const QString& mala : {entera + u"\r\n01010020014000"_s, u"hola"_s, QString()}) {
    QApplication::clipboard()->setText(mala);
    v->findChild<QAction*>(u"PegarEtiqueta"_s)->trigger();
    EXPECT_EQ(v->tira().texto(), u"Los datos no son adecuados: no se realizó la copia");
    EXPECT_EQ(t.lista(v, u"Campos").filas(), 0);
  }
  QApplication::clipboard()->setText(entera + u"NO ESTA"_s);
  v->findChild<QAction*>(u"PegarEtiqueta"_s)->trigger();
  EXPECT_EQ(t.lista(v, u"Campos").filas(), 2);
  EXPECT_EQ(t.control<QPushButton>(v, u"JueTxt").text().remove(u'&'), u"Textos: NO ESTA");
  EXPECT_EQ(t.campos(u"UNO"_s), u"");
  t.responder(u"Cancelo"_s);
  v->findChild<QAction*>(u"PegarEtiqueta"_s)->trigger();
  EXPECT_EQ(t.textoModal, u"Al cargar se perderán los cambios: ¿Está seguro?");
  t.activar(v);
  l.setFocus();
  t.tecla(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(t.leer(u"select settxt from ETIQUETAS where NUMETQ='UNO'"_s), u"NO ESTA");
}

TEST(EditorDeEtiquetas, CrearRenombrarYBorrar) {
  MesaDeEtiquetas t;
  auto* v = t.abrir(PuertaEdiEtqu());
  auto& nombre = t.control<QLineEdit>(v, u"NuevoNombre");
  nombre.setFocus();
  t.tecla(Qt::Key_Return);
  EXPECT_EQ(v->tira().texto(), u"La etiqueta debe tener un nombre no vacío");
  t.escribir(u"TRES"_s);
  t.tecla(Qt::Key_Return);
  EXPECT_EQ(t.nombres(), u"DOS | TRES | UNO");
  EXPECT_TRUE(v->windowTitle().startsWith(u"TRES"_s));
  auto& lista = t.lista(v);
  lista.irA(0);
  lista.vista()->setFocus();
  t.tecla(Qt::Key_F2);
  ASSERT_TRUE(lista.editando());
  qobject_cast<QLineEdit*>(QApplication::focusWidget())->selectAll();
  t.escribir(u"ZETA"_s);
  t.tecla(Qt::Key_Return);
  ASSERT_TRUE(esperar([&] { return lista.texto(lista.filaActual(), u"NUMETQ") == u"ZETA"; }));
  EXPECT_EQ(t.leer(u"select ETQ11 from BZAS"_s), u"ZETA");
  EXPECT_EQ(t.lista(v, u"Campos").filas(), 2);
  lista.vista()->setFocus();
  t.responder(u"Acepto"_s);
  t.tecla(Qt::Key_Delete);
  EXPECT_TRUE(t.textoModal.startsWith(u"Va a borrar un Formato completo: Está seguro?"_s));
  EXPECT_EQ(t.nombres(), u"TRES | UNO");
  EXPECT_EQ(t.leer(u"select ETQ11 from BZAS"_s), u"-");
  t.activar(v);
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(t.nombres(), u"DOS | TRES | UNO");
  EXPECT_EQ(t.leer(u"select ETQ11 from BZAS"_s), u"DOS");
}

// Each row: the button pressed when moving to another format with changes.
TEST(EditorDeEtiquetas, AlCambiarDeEtiquetaSePregunta) {
  const struct {
    QString boton;
    bool guardada, seVa;
  } casos[] = {{u"Acepto"_s, true, true}, {u"No"_s, false, true}, {u"Cancelo"_s, false, false}};
  for (const auto& c : casos) {
    MesaDeEtiquetas t;
    auto* v = t.abrir(PuertaEdiEtqu());
    t.lienzo(v).setFocus();
    t.lienzo(v).elegir({1});
    t.tecla(Qt::Key_Delete);
    t.responder(c.boton);
    t.lista(v).irA(1);
    EXPECT_EQ(t.campos(u"DOS"_s) == t.kCabecera + t.kPeso, c.guardada) << c.boton.toStdString();
    EXPECT_EQ(v->windowTitle().startsWith(u"UNO"_s), c.seVa) << c.boton.toStdString();
    EXPECT_EQ(t.lista(v).filaActual(), c.seVa ? 1 : 0);
    t.responder(u"Acepto"_s);
    v->descargar();
  }
}

TEST(EditorDeEtiquetas, UnaEstropeadaSePuedeBorrarPeroNoPisar) {
  MesaDeEtiquetas t;
  t.sql(u"update ETIQUETAS set CAMPOS='0101002001600' where NUMETQ='DOS'"_s);
  auto* v = t.abrir(PuertaEdiEtqu());
  EXPECT_TRUE(v->tira().texto().contains(u"está estropeada"_s));
  for (const QString& orden : {u"Guardar"_s, u"NvoCpo"_s, u"CopiarEtiqueta"_s})
    EXPECT_FALSE(v->findChild<QAction*>(orden)->isEnabled()) << orden.toStdString();
  QApplication::clipboard()->setText(t.kCabecera + t.kPeso);
  v->findChild<QAction*>(u"PegarEtiqueta"_s)->trigger();
  t.tecla(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(t.campos(u"DOS"_s), t.kCabecera + t.kPeso);
}

}  // namespace tarvo::prueba
