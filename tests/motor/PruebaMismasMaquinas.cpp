// Two groups that reach the same machines.
#include "motor/Reglas.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

// Machines that another group has at the same address are neither read nor zeroed: their sales
// would be in both. What is sent does no harm, and other machines of that line aren't the same.
TEST_F(Reglas, LasMaquinasDeOtroGrupoNoSeRecogen) {
  struct Caso {
    QString una, otra;
    int tipo;
    std::vector<int> direcciones, suyas;
    bool mismas;
  };
  const Caso casos[] = {
      {u"cable 1"_s, u"cable 1"_s, 1, {1}, {1}, true},
      {u"cable 1"_s, u"cable 2"_s, 1, {1}, {1}, false},
      {u"cable 1"_s, u"cable 1"_s, 1, {1}, {2}, false},  // other numbers of groups on a bus
      {u"tel:555"_s, u"tel:555"_s, 4, {1}, {1}, true},
      {u"tcp:localhost"_s, u"tcp:127.0.0.1"_s, 2, {1}, {1}, true},
      {u"tcp:una"_s, u"tcp:otra"_s, 2, {1}, {1}, false},
      {u"tcp:una"_s, u"tcp:una"_s, 3, {1, 2}, {1, 3}, true},
      {u"CON"_s, u"CON"_s, 1, {1}, {1}, false},
  };
  int g = 1;
  for (const Caso& c : casos) {
    grupo(g, c.tipo, c.una, c.direcciones);
    grupo(g + 1, c.tipo, c.otra, c.suyas);
    const auto dice = gestor->MismasMaquinas(g + 1);
    ASSERT_TRUE(dice);
    EXPECT_EQ(!dice->isEmpty(), c.mismas) << g << dice->toStdString();
    EXPECT_TRUE(gestor->MismasMaquinas(g)->isEmpty());
    for (const auto clase : {TipoTarea::RxGrTot, TipoTarea::TxZero})
      EXPECT_EQ(gestor->NuevaTarea(g + 1, true, 0, 9999999, clase),
                c.mismas ? motor::Pedida::Repetida : motor::Pedida::EnCola)
          << g;
    EXPECT_EQ(gestor->NuevaTarea(g + 1, true, 0, 9999999, TipoTarea::TxPlus),
              motor::Pedida::EnCola);
    gestor->terminator();
    sql(u"DELETE FROM GRUPOS"_s);
    sql(u"DELETE FROM BZAS"_s);
    g += 2;
  }
}

}  // namespace tarvo::prueba
