#include "comm/tramas/Trama.h"

using namespace tarvo::tramas;

namespace {

QByteArray vek(int secuencia, int codigo, const QByteArray& datos) {
  return construirVEK(secuencia, cuerpoVEK(1, codigo, datos));
}

TEST(TramaVEK, SeConstruyeByteAByte) {
  EXPECT_EQ(construirVEK(42, cuerpoVEK(0, 10, "180520261430")),
            QByteArray("\x02"
                       "42V0001018052026143037\x03"));
  EXPECT_EQ(cuerpoVEK(7, 2057, "x"), "072057x");
  EXPECT_EQ(cuerpoVEK(0, 1, QByteArray("a\x03z")), "00001a z");
}

TEST(TramaVEK, DeUnaEstacionEntreVarias) {
  const auto pregunta = [](int estacion) {
    return construirVEK(7, cuerpoVEK(0, 570, "01"), estacion);
  };
  EXPECT_EQ(pregunta(0).mid(3, 1) + pregunta(9).mid(3, 1) + pregunta(20).mid(3, 1), "V9K");
  const QByteArray buena = kACK + pregunta(20), sinACK = pregunta(20);
  QByteArray danada = buena, otraSigno = buena;
  danada[danada.size() - 2] ^= 1;
  otraSigno[4] = 'k';
  const std::vector<std::pair<QByteArray, int>> casos{
      {buena, 20},
      {"zz" + buena, 20},
      {kACK + pregunta(0), 0},
      {sinACK, -1},
      {danada, -1},
      {otraSigno, -1},
      {kACK + construirVEK(7, cuerpoVEK(1, 570, "01"), 3), -1},
      {buena + sinACK, -1},
      {"", -1}};
  for (const auto& [pieza, estacion] : casos) {
    const auto r = leerRespuestaVEK(pieza);
    EXPECT_EQ(r ? r->estacion : -1, estacion) << pieza.toHex(' ').constData();
    EXPECT_TRUE(!r || r->trama == (TramaVEK{7, 0, 570, "01"}));
  }
}

TEST(TramaVEK, ControlCuentaBytesSinSigno) {
  QByteArray buffer = vek(0, 5, QByteArray("\xF1\xFF", 2));
  EXPECT_EQ(leerVEK(buffer, false).trama, (TramaVEK{0, 1, 5, QByteArray("\xF1\xFF", 2)}));
}

// The result of a buffer: the frame taken, whether a bad one ended the step, and the rest.
struct CasoVEK {
  const char* nombre;
  QByteArray entrada;
  bool ancha;
  std::optional<TramaVEK> trama;
  bool mala;
  QByteArray resto;
};

QByteArray conControl(QByteArray trama) {  // from STX to the last data character
  unsigned suma = 0;
  for (const char c : trama.mid(1)) suma += static_cast<unsigned char>(c);
  return trama + QByteArray::number(suma % 100).rightJustified(2, '0') + kETX;
}

TEST(TramaVEK, Lectura) {
  const QByteArray una = vek(3, 10, "UNO"), otra = vek(4, 11, "DOS");
  const TramaVEK tUna{3, 1, 10, "UNO"}, tOtra{4, 1, 11, "DOS"};
  QByteArray danada = otra;
  danada[10] = 'X';
  const QByteArray nulos = vek(5, 10, QByteArray("a\0b", 3));
  const std::vector<CasoVEK> casos{
      {"whole", una, false, tUna, false, ""},
      {"split", una.left(6), false, {}, false, una.left(6)},
      {"two, the last one counts", una + otra, false, tOtra, false, ""},
      {"good and bad: neither", una + danada, false, {}, true, ""},
      {"bad and good: the good one waits", danada + una, false, {}, true, una},
      {"good and the start of another", una + otra.left(5), false, tUna, false, otra.left(5)},
      {"garbage before STX", "zz" + una, false, {}, true, ""},
      {"ACK between frames stays", una + kACK + otra, false, tUna, false, kACK + otra},
      {"nulls are data", nulos, false, TramaVEK{5, 1, 10, QByteArray("a\0b", 3)}, false, ""},
      {"no data", vek(9, 10, ""), false, TramaVEK{9, 1, 10, ""}, false, ""},
      {"wide layout",
       conControl("\x02"
                  "09V20571ABC"),
       true, TramaVEK{9, -1, 2057, "1ABC"}, false, ""},
      {"station 0 is V",
       conControl("\x02"
                  "090010101"),
       false,
       {},
       true,
       ""},
      {"station G",
       conControl("\x02"
                  "09G010101"),
       false,
       {},
       true,
       ""},
      {"station F",
       conControl("\x02"
                  "09F01010X"),
       false, TramaVEK{9, 1, 10, "X"}, false, ""},
      {"four digits",
       conControl("\x02"
                  "09F0101XX"),
       false,
       {},
       true,
       ""},
      {"too short",
       QByteArray("\x02"
                  "09V\x03"),
       false,
       {},
       true,
       ""},
  };
  for (const auto& caso : casos) {
    SCOPED_TRACE(caso.nombre);
    QByteArray buffer = caso.entrada;
    const LecturaVEK lectura = leerVEK(buffer, caso.ancha);
    EXPECT_EQ(lectura.trama, caso.trama);
    EXPECT_EQ(lectura.mala, caso.mala);
    EXPECT_EQ(buffer, caso.resto);
  }
}

TEST(TramaVEK, LasAnterioresSeConservanEnOrden) {
  QByteArray buffer = vek(1, 995, "a") + vek(2, 995, "b") + vek(3, 10, "c");
  const LecturaVEK lectura = leerVEK(buffer, false);
  ASSERT_EQ(lectura.previas.size(), 2U);
  EXPECT_EQ(lectura.previas[0].datos, "a");
  EXPECT_EQ(lectura.previas[1].datos, "b");
}

TEST(TramaVEK, TransaccionLeidaComoAnchaVuelveASuForma) {
  const TramaVEK usual{7, 1, 995, "150000001"};
  QByteArray buffer = construirVEK(7, cuerpoVEK(1, 995, "150000001"));
  const LecturaVEK lectura = leerVEK(buffer, true);
  ASSERT_TRUE(lectura.trama);
  EXPECT_EQ(estrecha(*lectura.trama), usual);
}

TEST(TramaNODAL, SeConstruyeByteAByte) {
  EXPECT_EQ(construirNODAL({0, 1, 0x2A, 36, "18052026143005"}),
            QByteArray("\x02"
                       "00012A2418052026143005\x03"
                       "EC\r"));
  // A sum that is already 0 modulo 256 carries 00.
  EXPECT_EQ(construirNODAL({0, 0, 0, 0, QByteArray("\x80\x80", 2)}),
            QByteArray("\x02"
                       "00000000\x80\x80\x03"
                       "00\r"));
  EXPECT_EQ(construirNODAL({255, 255, 256, 6, ""}).mid(1, 8), "FFFF0006");
}

struct CasoNODAL {
  const char* nombre;
  QByteArray entrada;
  bool hayLinea;
  std::optional<TramaNODAL> trama;
  QByteArray resto;
};

TEST(TramaNODAL, Lectura) {
  const TramaNODAL t{1, 0, 200, 8, "12"};
  const QByteArray buena = construirNODAL(t);
  QByteArray danada = buena, minuscula = construirNODAL({0xAB, 0, 1, 6, ""});
  danada[9] = '2';
  minuscula[1] = 'a';
  const TramaNODAL conEtx{1, 0, 2, 9, QByteArray("a\x03\0z", 4)};
  const std::vector<CasoNODAL> casos{
      {"whole", buena, true, t, ""},
      {"no CR yet", buena.chopped(1), false, {}, buena.chopped(1)},
      {"one line at a time", buena + buena, true, t, buena},
      {"bad check", danada + buena, true, {}, buena},
      {"small letters", minuscula, true, {}, ""},
      {"garbage before STX", "zz" + buena, true, {}, ""},
      {"only CR", "\r", true, {}, ""},
      {"short",
       "\x02"
       "0000\x03"
       "00\r",
       true,
       {},
       ""},
      {"ETX and null in the data", construirNODAL(conEtx), true, conEtx, ""},
  };
  for (const auto& caso : casos) {
    SCOPED_TRACE(caso.nombre);
    QByteArray buffer = caso.entrada;
    const LecturaNODAL lectura = leerNODAL(buffer);
    EXPECT_EQ(lectura.hayLinea, caso.hayLinea);
    EXPECT_EQ(lectura.trama, caso.trama);
    EXPECT_EQ(buffer, caso.resto);
  }
}

TEST(Tramas, LoInacabadoTieneUnLimite) {
  QByteArray vekLarga = kSTX + QByteArray(kMaxPendiente, '1');
  leerVEK(vekLarga, false);
  EXPECT_TRUE(vekLarga.isEmpty());
  QByteArray nodalLarga(kMaxPendiente + 1, 'A');
  leerNODAL(nodalLarga);
  EXPECT_TRUE(nodalLarga.isEmpty());
}

}  // namespace
