#include <gtest/gtest.h>

#include "comm/maquinas/Campos.h"

namespace tarvo::maquinas {

TEST(Campos, ElNumeroDeUnCampo) {
  struct Caso {
    const char* campo;
    qint64 valor;
    bool bueno;
  };
  for (const Caso& c :
       {Caso{"0000123", 123, true}, Caso{"000-123", -123, true}, Caso{"-000123", -123, true},
        Caso{"00012-3", 0, false}, Caso{"     12", 12, true}, Caso{"   -123", 0, false},
        Caso{"       ", 0, false}, Caso{"12a4567", 0, false}, Caso{"000000-", 0, false},
        Caso{"0000- 3", 0, false}, Caso{"+000123", 0, false}, Caso{"00001", 1, false},
        Caso{"", 0, false}}) {
    EXPECT_EQ(CampoNumerico(c.campo, 1, 7), c.valor) << c.campo;
    Lector l(c.campo);
    EXPECT_EQ(l.numero(1, 7), c.valor) << c.campo;
    EXPECT_EQ(!l.falta(), c.bueno) << c.campo;
  }
  EXPECT_EQ(CampoNumerico("ab012", 3, 3), 12);
  EXPECT_EQ(CampoNumerico("123", 0, 2), 0);
}

TEST(Campos, CerosYCampo) {
  EXPECT_EQ(Ceros(7, 4), "0007");
  EXPECT_EQ(Ceros(12345, 4), "12345");
  EXPECT_EQ(Ceros(-7, 4), "-007");
  EXPECT_EQ(Campo("abc", 5), "abc  ");
  EXPECT_EQ(Campo("abcdef", 5), "abcde");
}

}  // namespace tarvo::maquinas
