// Several tasks of the queue at once.
#include <QTableView>
#include <QToolBar>

#include "MesaDeGestcomm.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

using simulador::Averia;

// The row pressed is the one that the keys act on, though the line of its problem moves the list;
// once it is removed, the row that takes its place is.
TEST_F(Gestcomm, LaFilaPulsadaEsLaDeLaOrden) {
  dosGrupos();
  auto* v = abrir(u"gestcomm"_s);
  gestor->CambioAModo(false);
  gestor->NuevaTarea(1, true, 0, 9999999, TipoTarea::RxGrTot);
  constexpr int kCeros = 30;
  for (int i = 0; i < kCeros; ++i) gestor->NuevaTarea(2, true, 0, 9999999, TipoTarea::TxZero);
  gestor->anadirGrupoFallido(2);
  for (int id = 2; id < kCeros + 2; ++id) gestor->AvanzarTarea(id);  // refused
  pasar(150);
  v->resize(1000, 500);
  cola()->irA(0);
  pasar(150);
  QTableView* vista = cola()->vista();
  ASSERT_FALSE(control<QLabel>(u"LblProblema"_s)->isVisible());
  const QPoint filo(20, vista->viewport()->height() - 2);
  const int pulsada = vista->indexAt(filo).row();
  QTest::mousePress(vista->viewport(), Qt::LeftButton, {}, filo);
  QTest::mouseMove(vista->viewport(), filo - QPoint(0, 1));
  QTest::mouseRelease(vista->viewport(), Qt::LeftButton, {}, filo);
  EXPECT_TRUE(control<QLabel>(u"LblProblema"_s)->isVisible());
  EXPECT_EQ(cola()->filaActual(), pulsada);
  EXPECT_EQ(cola()->filasElegidas(), std::vector{pulsada});
  QString dicho;
  luego([&](QWidget* d) {
    dicho = d->findChild<QLabel*>(u"LblTitular"_s)->text();
    QTest::keyClick(d, Qt::Key_Escape);
  });
  QTest::keyClick(v, Qt::Key_F9);
  EXPECT_TRUE(dicho.startsWith(u"No se ha hecho")) << dicho.toStdString();
  QTest::keyClick(v, Qt::Key_Delete);
  pasar(150);
  EXPECT_EQ(cola()->filas(), kCeros);
  EXPECT_EQ(cola()->filaActual(), pulsada);
  EXPECT_EQ(cola()->filasElegidas(), std::vector{pulsada});
}

// Those told to go on that can't yet are counted apart; a stopped one says how it starts again.
TEST_F(Gestcomm, SeguirDiceQuienEsperaYQuePasaConLoParado) {
  dosGrupos();
  lenta(1, 1);
  auto* v = abrir(u"gestcomm"_s);
  gestor->CambioAModo(false);
  for (int i = 0; i < 4; ++i) gestor->NuevaTarea(1, true, 0, 9999999, TipoTarea::RxGrTot);
  pasar(150);
  QTest::keyClick(cola()->vista(), Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(v, Qt::Key_F6);
  EXPECT_TRUE(v->tira().texto().startsWith(u"Hecho con 1 tarea. 3 tareas esperan un canal libre"))
      << v->tira().texto().toStdString();
  cola()->irA(0);
  ASSERT_TRUE(hasta([&] { return celda(0, u"Estado") == u"Transfiriendo datos"; }));
  QTest::keyClick(v, Qt::Key_F8);
  QTest::keyClick(v, Qt::Key_F6);
  EXPECT_TRUE(v->tira().texto().startsWith(u"La tarea está parada"))
      << v->tira().texto().toStdString();
  for (const QKeySequence& k : {QKeySequence(Qt::Key_Delete), QKeySequence(QKeySequence::Undo)})
    QTest::keySequence(v, k), pasar(150);
  EXPECT_EQ(celda(0, u"Estado"), u"En espera de ser procesado");
}

// Ctrl+A chooses all; a command goes to each chosen one, and those removed together come back
// together.
TEST_F(Gestcomm, LasOrdenesVanATodasLasElegidas) {
  dosGrupos();
  fallo(1, {.averia = Averia::Sorda});
  fallo(2, {.averia = Averia::Sorda});
  auto* v = abrir(u"gestcomm"_s);
  for (const int g : {1, 2}) gestor->NuevaTarea(g, true, 0, 9999999, TipoTarea::RxGrTot);
  const auto interrumpidas = [&] {
    int n = 0;
    for (int i = 0; i < cola()->filas(); ++i)
      n += celda(i, u"Estado") == u"Interrumpido por algún problema" ? 1 : 0;
    return n;
  };
  ASSERT_TRUE(hasta([&] { return interrumpidas() == 2; }));
  QTest::keyClick(v, Qt::Key_U, Qt::ControlModifier | Qt::ShiftModifier);
  pasar(150);
  QTest::keyClick(cola()->vista(), Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(cola()->filasElegidas().size(), 2U);
  QTest::keyClick(v, Qt::Key_F8);
  EXPECT_EQ(v->tira().texto(), u"A 2 de las elegidas no se les puede hacer eso tal como están.");
  QTest::keyClick(v, Qt::Key_F6);
  EXPECT_FALSE(v->tira().isVisible());
  pasar(150);
  EXPECT_EQ(interrumpidas(), 0);
  ASSERT_TRUE(hasta([&] { return interrumpidas() == 2; }));

  QTest::keyClick(v, Qt::Key_Delete);
  pasar(150);
  EXPECT_EQ(cola()->filas(), 0);
  EXPECT_EQ(v->tira().texto(), u"2 tareas quitadas. Ctrl+Z las devuelve a la cola.");
  QTest::keyClick(v, Qt::Key_Z, Qt::ControlModifier);
  pasar(150);
  EXPECT_EQ(cola()->filas(), 2);
  EXPECT_EQ(v->tira().texto(), u"2 tareas vuelven a la cola.");
  EXPECT_EQ(cola()->filasElegidas().size(), 2U);
  EXPECT_FALSE(accion(u"ReponP"_s)->isEnabled());
}

// Escape in a menu gives the keyboard back to the queue; what a later key takes is what is seen to
// be chosen, and so it is after it has come back.
TEST_F(Gestcomm, ElMenuDevuelveElTeclado) {
  dosGrupos();
  auto* v = abrir(u"gestcomm"_s);
  gestor->CambioAModo(false);
  for (const int clase : {17, 18, 19}) encolar(1, clase);
  pasar(150);
  ASSERT_EQ(cola()->filas(), 3);
  cola()->irA(1);
  cola()->vista()->setFocus();
  QTest::keyClick(v, Qt::Key_T, Qt::AltModifier);
  ASSERT_TRUE(QApplication::activePopupWidget());
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
  EXPECT_TRUE(v->isVisible());
  v->activateWindow();  // on a desktop a menu doesn't take its place
  ASSERT_TRUE(QTest::qWaitForWindowActive(v));
  EXPECT_EQ(v->focusWidget(), cola()->vista());
  QTest::keyClick(v->focusWidget(), Qt::Key_Delete);
  pasar(150);
  EXPECT_EQ(celda(0, u"Tarea") + celda(1, u"Tarea"), u"001003");
  EXPECT_EQ(cola()->filasElegidas(), std::vector{cola()->filaActual()});
  cola()->irA(0);
  QTest::keyClick(v->focusWidget(), Qt::Key_Z, Qt::ControlModifier);
  pasar(150);
  ASSERT_EQ(cola()->filas(), 3);
  EXPECT_EQ(celda(cola()->filaActual(), u"Tarea"), u"002");
  EXPECT_EQ(cola()->filasElegidas(), std::vector{cola()->filaActual()});
}

// A command that can't act says why, by its key and by its button.
TEST_F(Gestcomm, LaOrdenQueNoSePuedeDicePorQue) {
  dosGrupos();
  auto* v = abrir(u"gestcomm"_s);
  QTest::keyClick(v, Qt::Key_F9);
  EXPECT_TRUE(v->tira().texto().startsWith(u"No hay nada en la cola.")) << "not that of its mode";
  gestor->NuevaTarea(1, true, 0, 9999999, TipoTarea::RxGrTot);
  ASSERT_TRUE(hasta([&] { return cola()->filas() == 1 && celda(0, u"Estado") == u"Terminado"; }));
  pasar(150);
  auto* barra = v->findChild<QToolBar*>(u"barra"_s);
  QTest::mouseClick(barra->widgetForAction(accion(u"RunP"_s)), Qt::LeftButton);
  EXPECT_TRUE(v->tira().texto().startsWith(u"En automático")) << v->tira().texto().toStdString();
  QTest::keyClick(v, Qt::Key_U, Qt::ControlModifier | Qt::ShiftModifier);
  QTest::keyClick(v, Qt::Key_F8);
  EXPECT_EQ(v->tira().texto(), u"La tarea está «Terminado»: así no se le puede hacer eso.")
      << "it is only still displayed";
  fallo(2, {.averia = Averia::Sorda});
  gestor->CambioAModo(true);
  gestor->NuevaTarea(2, true, 0, 9999999, TipoTarea::RxGrTot);
  ASSERT_TRUE(hasta([&] {
    return cola()->filas() == 2 && celda(1, u"Estado") == u"Interrumpido por algún problema";
  }));
  gestor->CambioAModo(false);
  pasar(150);
  QTest::keyClick(cola()->vista(), Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(v, Qt::Key_F6);
  EXPECT_EQ(v->tira().texto(),
            u"Hecho con 1 tarea. A 1 de las elegidas no se le puede hacer eso tal como está.");
}

// What goes otherwise than it was typed is in the grid, and whole in the diagnosis.
TEST_F(Gestcomm, LoQueNoVaComoSeEscribioSeLee) {
  dosGrupos();
  sql(u"UPDATE BZAS SET RZSOCIAL='C:0:Frutas y verduras de la abuela Pepa\r\nHola' WHERE SUGPO=1"_s);
  abrir(u"gestcomm"_s);
  gestor->NuevaTarea(1, true, 0, 0, TipoTarea::TxTick);
  ASSERT_TRUE(hasta([&] { return cola()->filas() == 1 && celda(0, u"Estado") == u"Terminado"; }));
  const QString dice =
      u"Grupo 1: en la línea 1 del ticket de la balanza 1 no cabe «Frutas y "
      u"verduras de la abuela Pepa», y va «Frutas y verduras de la abu»: acórtelo."_s;
  EXPECT_EQ(celda(0, u"Problema"), QString(dice + u" …"_s));
  cola()->irA(0);
  QString dicho;
  luego([&](QWidget* d) {
    auto* detalle = d->findChild<QPlainTextEdit*>(u"TxtDetalle"_s);
    dicho = detalle->isVisible() ? detalle->toPlainText() : QString();
    QTest::keyClick(d, Qt::Key_Escape);
  });
  QTest::keyClick(static_cast<QWidget*>(cola()->vista()), Qt::Key_Return);
  EXPECT_EQ(dicho.section(u'\n', 0, 0), dice);
  EXPECT_EQ(dicho.count(u"«Hola»"_s), 1);
}

}  // namespace tarvo::prueba
