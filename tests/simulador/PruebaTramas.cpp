#include "simulador/Mesa.h"

namespace tarvo::simulador {
namespace {

TEST(TramasVEK, LeeLoQueMandaLaTrastienda) {
  // 4+2+V+0+0+0+1+0 and the twelve digits add up to 1037.
  const QByteArray hora =
      "\x02"
      "42V0001018052026143037\x03";
  const Peticion esperada{0, 0, 0, 42, 10, "180520261430"};
  struct Caso {
    const char* que;
    QByteArray bytes;
    std::size_t peticiones;
  } const casos[] = {{"whole", hora, 1},
                     {"noise before", "xx\x06" + hora, 1},
                     {"begun twice", hora.left(9) + hora, 1},
                     {"two", hora + hora, 2},
                     {"wrong check", QByteArray(hora).replace("37\x03", "38\x03"), 0},
                     {"check no digits", QByteArray(hora).replace("37\x03", "3x\x03"), 0},
                     {"station unknown", QByteArray(hora).replace("V", "G"), 0},
                     {"too short",
                      "\x02"
                      "42V\x03",
                      0},
                     {"endless", "\x02" + QByteArray(100000, '7') + hora, 1}};
  for (const Caso& caso : casos) {
    LectorVEK lector(false);
    std::size_t peticiones = 0;
    for (const char c : caso.bytes)  // byte by byte, as on a slow line
      for (const Entrada& entrada : lector.leer(QByteArray(1, c)))
        if (entrada.clase == Clase::Peticion) {
          EXPECT_EQ(entrada.peticion, esperada) << caso.que;
          ++peticiones;
        }
    EXPECT_EQ(peticiones, caso.peticiones) << caso.que;
  }
}

TEST(TramasVEK, LosCodigosAnchosLlevanCuatroCifras) {
  LectorVEK lector(true);
  const auto entradas = lector.leer(vek(7, 2, "2057" + QByteArray(12, ' ') + "118000"));
  ASSERT_EQ(entradas.size(), 1U);
  EXPECT_EQ(entradas[0].peticion, (Peticion{0, 2, 0, 7, 2057, QByteArray(12, ' ') + "118000"}));
  // 0+1+V+2+0+6+0 and 0+0+9+9 add up to 593.
  EXPECT_EQ(tramaVEKAncha(1, 0, 2060, "0099"), QByteArray("\x02"
                                                          "01V2060009993\x03"));
}

TEST(TramasNODAL, LeeLoQueMandaLaTrastienda) {
  // 0+1+2A+24 hexadecimal and the fourteen digits add up to 788; EC brings it to 1024.
  const QByteArray hora =
      "\x02"
      "00012A2418052026143005\x03"
      "EC\r";
  const Peticion esperada{0, 1, 0, 42, 36, "18052026143005"};
  struct Caso {
    const char* que;
    QByteArray bytes;
    std::size_t peticiones;
  } const casos[] = {{"whole", hora, 1},
                     {"noise before", "zz\r" + hora, 1},
                     {"glued", hora + hora, 2},
                     {"wrong check", QByteArray(hora).replace("EC", "ED"), 0},
                     {"small letters", QByteArray(hora).replace("2A", "2a"), 0},
                     {"no end of text", QByteArray(hora).replace('\x03', '4'), 0},
                     {"endless", "\x02" + QByteArray(100000, '7') + hora, 1}};
  for (const Caso& caso : casos) {
    LectorNODAL lector;
    const auto entradas = lector.leer(caso.bytes);
    ASSERT_EQ(entradas.size(), caso.peticiones) << caso.que;
    for (const Entrada& entrada : entradas) EXPECT_EQ(entrada.peticion, esperada);
  }
}

TEST(TramasNODAL, ElControlPuedeSerCero) {
  // 1+0+F9+6 is 256 already.
  EXPECT_EQ(tramaNODAL(1, 0, 0xF9, 6, {}), QByteArray("\x02"
                                                      "0100F906\x03"
                                                      "00\r"));
}

TEST(Campos, NumerosConSigno) {
  EXPECT_EQ(campo(123, 7), "0000123");
  EXPECT_EQ(campo(-123, 7), "000-123");
  EXPECT_EQ(campo(1234567, 4), "4567");
  EXPECT_EQ(leerCampo("0123", 1, 2), 12);
  EXPECT_EQ(leerCampo("0123", 2, 3), -1);
  EXPECT_EQ(leerCampo("01 3", 0, 4), -1);
}

}  // namespace
}  // namespace tarvo::simulador
