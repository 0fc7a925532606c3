// Registers that another program has taken out of their group.
#include <gtest/gtest.h>

#include "libros/TiendaDeLibros.h"
#include "totals/libros/Grupos.h"

namespace tarvo::prueba {

// What a register that is gone has in the periods stays there: its counters are no part of the next
// reading. One that only has another address goes on where it was.
TEST(CajasIdas, LoMemorizadoSeQueda) {
  const struct {
    const char16_t *cambio, *que;
    bool seVa;
  } casos[] = {{u"DELETE FROM BZAS WHERE ADDR=2", u"gone", true},
               {u"UPDATE BZAS SET ADDR=5 WHERE ADDR=2", u"another address", false}};
  for (const auto& c : casos) {
    TiendaDeLibros t(Fecha::de(QDate(2026, 11, 23), QTime(21, 0)));
    t.grupo(2, {1, 2}, 3);
    for (const int addr : {1, 2})
      t.fila(u"BZAS", {{u"SUGPO", 2}, {u"NMBZA", addr}, {u"ADDR", addr}});
    const auto vender = [&t](int addr, int veces) {
      for (int n = 0; n < veces; ++n) t.grupos.at(2).at(addr).vender(10 + n % 7, 100 + n, 0);
    };
    t.amanecer();
    vender(1, 9), vender(2, 18);
    t.leer(2);
    t.memorizar();
    const qint64 lunes = t.enPeriodos(2, TipoTotal::PLUs).IMP;
    t.sql(QString::fromUtf16(c.cambio));
    auto cajas = t.grupos.at(2).extract(2);
    if (!c.seVa) cajas.key() = 5, t.grupos.at(2).insert(std::move(cajas));
    t.cortar();
    ASSERT_TRUE(totals::seguirCajas(t.db(), t.ajustes(), t.sesion()));
    t.amanecer();
    vender(1, 3);
    t.leer(2);
    t.memorizar();
    EXPECT_EQ(t.enPeriodos(2, TipoTotal::PLUs).IMP, lunes + 303)
        << QString::fromUtf16(c.que).toStdString();
  }
}

}  // namespace tarvo::prueba
