// Whole tasks against machine models: the contents of the machines before and after, and of the
// database.
#include "motor/TiendaDeMotor.h"

namespace tarvo::prueba {

TEST_F(TiendaDeMotor, LaHoraLlegaALasMaquinas) {
  grupo(1, 1, QStringLiteral("cable 1"));
  grupo(2, 2, QStringLiteral("cable 2"), {5});
  grupo(4, 4, QStringLiteral("tienda4"));
  for (const int g : {1, 2, 4}) {
    maquina(g, g == 2 ? 5 : 1).ponerDesfase(2);
    encolar(g, 7);
  }
  ASSERT_TRUE(correr());
  EXPECT_EQ(oidas(1), QStringList{QStringLiteral("10 180520262130")});
  EXPECT_TRUE(oidas(2, 5).value(0).startsWith(u"36 18052026213"));
  EXPECT_EQ(oidas(4), oidas(1));
  for (const int g : {1, 2, 4}) EXPECT_LT(std::abs(maquina(g, g == 2 ? 5 : 1).desfase()), 0.001);
  EXPECT_EQ(hechas.size(), 3);
  EXPECT_TRUE(problemas.isEmpty() && reintentos.isEmpty() && avisos.isEmpty());
  reloj.avanzar(5000);
  for (const auto& c : gestor->canales()) EXPECT_EQ(c.EstadoCanal, 3);
}

}  // namespace tarvo::prueba
