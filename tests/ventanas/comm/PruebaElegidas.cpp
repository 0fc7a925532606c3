// Several tasks of the queue at once.
#include <QTableView>

#include "MesaDeGestcomm.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

using simulador::Averia;

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

}  // namespace tarvo::prueba
