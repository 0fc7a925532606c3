// The header lines of a ticket.
#include <gtest/gtest.h>

#include "devices/Cabecera.h"
#include "devices/Maquina.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;
using namespace devices;

TEST(Cabecera, LeidaYEscrita) {
  struct Caso {
    QString texto;
    int lineas, arriba;
    QString vuelta;  // empty: as it was
  };
  const Caso casos[] = {
      {Balanza().RazonSo, 6, 6, {}},
      {u"C:0:UNO\r\nC:3:DOS: Y MÁS\r\nP:4:TRES\r\n"_s, 3, 2, {}},
      {u"C:0:UNO\r\n"_s, 3, 1, u"C:0:UNO\r\nP:0:\r\nP:0:\r\n"_s},
      {{}, 2, 0, u"P:0:\r\nP:0:\r\n"_s},
      {u"C:0:A\r\nC:0:B\r\nC:0:C\r\n"_s, 2, 2, u"C:0:A\r\nC:0:B\r\n"_s},
      {u"C:9:A\r\nX\r\n"_s, 2, 1, u"C:0:A\r\nP:0:\r\n"_s},
      {u"C:1:SIN FIN"_s, 2, 1, u"C:1:SIN FIN\r\nP:0:\r\n"_s},
  };
  for (const Caso& c : casos) {
    const Cabecera leida = leerCabecera(c.texto, c.lineas);
    EXPECT_EQ(leida.arriba, c.arriba) << c.texto.toStdString();
    EXPECT_EQ(escribirCabecera(leida), c.vuelta.isEmpty() ? c.texto : c.vuelta);
  }
}

}  // namespace tarvo::prueba
