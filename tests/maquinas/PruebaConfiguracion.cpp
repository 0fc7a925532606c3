// The exact bytes of every frame of configuration.
#include <gtest/gtest.h>

#include "comm/maquinas/Configuracion.h"

namespace tarvo::maquinas {

using namespace Qt::StringLiterals;

namespace {

QByteArray trama(const Piezas& piezas, size_t n) {
  if (n >= piezas.size()) return "(ninguna)";
  const Pieza& p = piezas[n];
  return QByteArray::number(p.peticion.codigo) + ' ' + p.peticion.datos + (p.vale ? "" : " (no)");
}

QByteArrayList tramas(const Piezas& piezas) {
  QByteArrayList lista;
  for (size_t i = 0; i < piezas.size(); ++i) lista += trama(piezas, i);
  return lista;
}

}  // namespace

// Each row: the texts, the first frames, and how many there are.
TEST(Configuracion, Teclados) {
  const struct {
    TipoGrupo tipo;
    int teclas;
    TextosDeTeclado textos;
    QByteArrayList primeras;
    size_t cuantas;
  } casos[] = {
      {TipoGrupo::Balanzas,
       4,
       {u"001:0000071\r\n002:\r\n"_s, u"01:0120\r\n02:\r\n"_s, u"001:021\r\n003:131\r\n"_s},
       {"0 0010000071", "0 0020000000", "40 010120", "40 020000", "70 001021", "70 002999",
        "70 003131", "70 004999"},
       8},
      {TipoGrupo::Birch, 2, {{}, {}, {}}, {"70 001999", "70 002999"}, 2},
      // Up to the first empty line; what is no number can't be sent, nor what doesn't fit.
      {TipoGrupo::Balanzas,
       1,
       {u"001:1\r\n\r\n002:2\r\n"_s, u"01:12x4"_s, u"abc:021"_s},
       {"0 0011000000", "40 0112x4 (no)", "70 abc021 (no)"},
       3},
      {TipoGrupo::Ebony,
       28,
       {u"001:0000071"_s, u"01:0120"_s, u"01:P:000123\r\n03:T:000250\r\n"_s},
       {"38 030010000123", "38 030020000000", "38 030030100250", "38 030040000000"},
       28},
      {TipoGrupo::Ebony,
       2,
       {{}, {}, u"01:P:123456\r\n02:N:000000\r\n"_s},
       {"38 0300100123456 (no)", "38 030020100000"},
       2},
  };
  for (const auto& c : casos) {
    const auto t = tramas(piezasDeTeclado(c.tipo, 3, c.teclas, c.textos));
    EXPECT_EQ(t.mid(0, c.primeras.size()), c.primeras);
    EXPECT_EQ(static_cast<size_t>(t.size()), c.cuantas);
  }
}

TEST(Configuracion, LineasDelTicket) {
  const QString lineas = u"C:2: Peñón\r\nP:0:Gracias\r\nX\r\n"_s;
  const auto conBlancos = [](const QByteArray& t, int ancho) { return t.leftJustified(ancho); };
  const auto normal = tramas(piezasDeTicket(TipoGrupo::Balanzas, 3, lineas));
  EXPECT_EQ(normal,
            (QByteArrayList{
                "300 1\x10" + conBlancos(" Pe|on", 27) + "1",
                "300 2\x0e" + conBlancos("Gracias", 27) + "2",
                "300 3\x0e" + conBlancos("", 27) + "0", "300 4\x0e" + conBlancos("", 27) + "0",
                "300 5\x0e" + conBlancos("", 27) + "0", "300 6\x0e" + conBlancos("", 27) + "0"}));
  const auto birch = piezasDeTicket(TipoGrupo::Birch, 3, lineas);
  EXPECT_EQ(trama(birch, 1), "300 2\x0f" + conBlancos("Gracias", 37) + "2");
  EXPECT_EQ(trama(birch, 5), "300 6\x0e" + conBlancos("", 37) + "0");
  const auto nodal = piezasDeTicket(TipoGrupo::Ebony, 3, lineas);
  EXPECT_EQ(nodal.size(), 5U);
  EXPECT_EQ(trama(nodal, 0), "33 0312C" + conBlancos(" Pe[on", 32));
  EXPECT_EQ(trama(nodal, 4), "33 0350P" + conBlancos("", 32));
}

TEST(Configuracion, OpcionesDelGrupo) {
  OpcionesDeGrupo o{.TK_FLAGS = u"11010101"_s,
                    .TK_CPIA = 2,
                    .TK_TCOP = 7,
                    .E13_PE = u"CCCCCCKIIIII"_s,
                    .E08_PE = u"CCIIIII"_s,
                    .E13_CU = u"XXCCCCCCKIIIII"_s,
                    .E08_CU = {},
                    .IVA = {1600, 1250, 0, 2100, 1050},
                    .departamentos = {{1, u"Queso"_s}, {5, {}}},
                    .TOTE = 5,
                    .TOCO = 123,
                    .PITO = true,
                    .SALT = false,
                    .PRLI = true,
                    .operadores = {{u"Ana"_s, true}, {}}};
  const QByteArray ana = QByteArray("Ana").leftJustified(16), nadie(16, ' ');
  const QByteArrayList esperadas{"310 11010",
                                 "330 207",
                                 "240 CCCCCCKIIIIICCIIIIICCCCCCKIIIII0000000",
                                 "90 10016",
                                 "90 21250",
                                 "90 30000",
                                 "90 40021",
                                 "90 51050",
                                 "80 011",
                                 "80 025",
                                 "210 05",
                                 "220 123 (no)",
                                 "260 1",
                                 "340 0",
                                 "270 1",
                                 "30 01" + ana + "1",
                                 "30 02" + nadie + "0"};
  EXPECT_EQ(tramas(piezasDeGrupo(TipoGrupo::Balanzas, o)), esperadas);
  const auto birch = piezasDeGrupo(TipoGrupo::Birch, o);
  EXPECT_EQ(trama(birch, 0), "310 11010101");
  EXPECT_EQ(trama(birch, 8), "80 011" + QByteArray("Queso").leftJustified(20));
}

TEST(Configuracion, OpcionesDeCadaBalanza) {
  OpcionesDeBalanza o{.MESSAG = u"Oferta: ½ kg"_s,
                      .MESS_R = 9,
                      .MESS_T = 2,
                      .permisos = {true, false, true, false, true},
                      .HABIL_BC = true,
                      .TIPO_BC = 2,
                      .FIJO_BC = 123,
                      .FORMA_BC = u"CCIIIII"_s,
                      .DIGIT_PLU = 7,
                      .modos = {0, 2, 4},
                      .operadores = {1, 12, 0}};
  const auto p = piezasDeBalanza(TipoGrupo::Balanzas, o, false);
  EXPECT_EQ(tramas(p),
            (QByteArrayList{"20 " + QByteArray("Oferta: 1/2 kg\r").leftJustified(200) + "092",
                            "250 10101",
                            "320 1\x17"
                            "000012300000CCIIIIICCIIIII",
                            "230 700000", "200 001212400"}));
  EXPECT_EQ(p[0].cambiadas, u"½"_s);
  o.finDeMensajeLargo = true;
  const auto birch = piezasDeBalanza(TipoGrupo::Birch, o, true);
  EXPECT_EQ(birch[0].peticion.datos.count('\x13'), 1);
  EXPECT_EQ(trama(birch, 5), "360 0");
}

TEST(Configuracion, FormatosDeEtiqueta) {
  FormatosDeEtiqueta f;
  f[0] = u"001800100000000\r\n010100200160001\r\n"_s;
  f[1] = u"010100200160001\r\n"_s;
  f[2] = u"001910000000000\r\n01x"_s;
  std::array<QString, 20> textos;
  textos[0] = u"Sin sal"_s;
  const auto t = tramas(piezasDeEtiquetas(TipoGrupo::Balanzas, f, textos));
  EXPECT_EQ(
      t.mid(0, 9),
      (QByteArrayList{"420 01", "400 01180010001001800100000000", "400 01180010002010100200160001",
                      "420 02", "400 02191000001001910000000000", "400 02191000002010100200160001",
                      "420 03", "400 03191000001001910000000000", "400 0319100000201x (no)"}));
  EXPECT_EQ(t.size(), 16 + 20);
  EXPECT_EQ(t[16], "410 01" + QByteArray("Sin sal").leftJustified(27));
  EXPECT_EQ(piezasDeEtiquetas(TipoGrupo::Balanzas, f, {}).size(), 16U);
  const auto birch = tramas(piezasDeEtiquetas(TipoGrupo::Birch, f, textos));
  EXPECT_EQ(birch.size(), 16 + 81);
  EXPECT_EQ(birch[25], "440 21" + QByteArray("Sin sal").leftJustified(37));
}

}  // namespace tarvo::maquinas
