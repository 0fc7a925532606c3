#include "simulador/DiaDeVentas.h"
#include "simulador/Json.h"
#include "simulador/Mesa.h"

namespace tarvo::simulador {
namespace {

void venderUnDia(Mesa& mesa) {
  mesa.vender(5, 1, 9, 398, 2000, 1, 20);
  mesa.vender(9, 3, 9, 500, 0, 2, 5);
  mesa.vender(5, 3, 17, -100, -500);
}

// Questions and the complete data of their answers.
struct Pregunta {
  QByteArray pregunta, respuesta;
};

void preguntar(Tipo tipo, const std::vector<Pregunta>& preguntas) {
  Mesa mesa(opciones(tipo));
  venderUnDia(mesa);
  mesa.maquina->memoria().apuntar(Lista::Pedidos, {5, 1500, 2});
  int secuencia = 0;
  for (const auto& [pregunta, respuesta] : preguntas)
    EXPECT_EQ(mesa.decir(vek(40, 0, pregunta)).toStdString(),
              (kAck + vek(++secuencia, 0, pregunta.left(3) + respuesta)).toStdString());
}

TEST(Balanzas, ContestanSusTotales) {
  preguntar(Tipo::Balanzas, {{"8300000005",
                              "0000005"
                              "000000298"
                              "000001500"
                              "00002"
                              "000000000"
                              "000000020"},
                             {"8300000006",
                              "0000006"
                              "000000000"
                              "000000000"
                              "00000"
                              "000000000"
                              "000000000"},
                             {"83500000060300",
                              "0000009"
                              "000000500"
                              "000000000"
                              "00002"
                              "000000000"
                              "000000005"},
                             {"83500000100300",
                              "0000000"
                              "000000000"
                              "000000000"
                              "00000"
                              "000000000"
                              "000000000"},
                             {"850",
                              "000000798"
                              "000001500"
                              "00000"
                              "00004"},
                             {"80003",
                              "03"
                              "000000400"
                              "00003" +
                                  QByteArray(33, '0') + "000000005"},
                             {"81001",
                              "01"
                              "000000298"
                              "000001500"
                              "00002"},
                             {"84017",
                              "17"
                              "00000-100"
                              "00000-500"
                              "00001"},
                             {"8200110",
                              "03"
                              "09"
                              "000000500"
                              "000000000"
                              "00002"},
                             {"8200318",
                              "00"
                              "00"
                              "000000000"
                              "000000000"
                              "00000"},
                             {"6100000",
                              "0"
                              "0000005"
                              "00001500"
                              "00000002" +
                                  QByteArray(23, '0')},
                             {"6100001", "0" + QByteArray(23, '0')},
                             {"570", "1101000000000000"},
                             {"860", "ERR01"},
                             {"830x", "ERR01"},
                             {"777", "ERR01"},
                             {"1019999999", "ERR05"}});
}

TEST(Birch, PartenLosDescuentosDelGranTotal) {
  preguntar(Tipo::Birch, {{"860",
                           "000000798"
                           "000001500"
                           "00000"
                           "00004" +
                               QByteArray(28, '0') +
                               "000000012"
                               "00000"
                               "000000013"},
                          {"850", "ERR01"}});
}

TEST(Balanzas, GuardanBorranYDevuelvenArticulos) {
  Mesa mesa(opciones(Tipo::Birch));
  const QByteArray ficha = QByteArray("MELON").leftJustified(20) +
                           "0000012"
                           "000145"
                           "0"
                           "01\x17"
                           "0000002"
                           "03"
                           "01" +
                           QByteArray(10, '0') +
                           "1"
                           "000000"
                           "00"
                           "00000"
                           "000145"
                           "00000"
                           "000145"
                           "texto\x13";
  EXPECT_EQ(mesa.decir(vek(1, 0, "100" + ficha)), kAck + vek(1, 0, "100"));
  const Articulo& melon = mesa.maquina->memoria().catalogo.at(12);
  EXPECT_EQ(melon.precio, 145);
  EXPECT_EQ(melon.departamento, 3);
  EXPECT_EQ(mesa.decir(vek(2, 0,
                           "101"
                           "0000010")),
            kAck + vek(2, 0, "101" + ficha));
  mesa.decir(vek(3, 0,
                 "101"
                 "0000012"
                 "000150"
                 "000140"
                 "000130"));
  EXPECT_EQ(melon.precio, 150);
  EXPECT_EQ(melon.ficha.mid(27, 6) + melon.ficha.mid(72, 6) + melon.ficha.mid(83, 6),
            "000150"
            "000140"
            "000130");
  EXPECT_EQ(mesa.decir(vek(4, 0, "100" + ficha.left(80))), kAck + vek(4, 0, "100ERR01"));
  mesa.decir(vek(5, 0,
                 "120"
                 "0000012"));
  EXPECT_FALSE(mesa.maquina->memoria().catalogo.contains(12));
  EXPECT_EQ(mesa.decir(vek(6, 3, "300")), kAck + vek(6, 3, "300ERR03"))
      << "no scale 2 in the group";
}

TEST(Ebony, MandaListasTramaATrama) {
  OpcionesMaquina ebony = opciones(Tipo::Ebony, 1);
  ebony.registrosPorTrama = 2;
  Mesa mesa(ebony);
  venderUnDia(mesa);
  mesa.maquina->memoria().catalogo[10] = {1, 10, QStringLiteral("PAN"), 2};
  EXPECT_EQ(mesa.decir(nodal("00010543", "9900009999")), nodal("01000106") + nodal("01000243",
                                                                                   "00"
                                                                                   "0005"
                                                                                   "00000298"
                                                                                   "00001500"
                                                                                   "000002"
                                                                                   "0009"
                                                                                   "00000500"
                                                                                   "00000000"
                                                                                   "000002"));
  EXPECT_EQ(mesa.decir(nodal("00020606")), "") << "another node's acknowledgement";
  EXPECT_EQ(mesa.decir(nodal("00010606")), nodal("01000343",
                                                 "00"
                                                 "0010"
                                                 "00000000"
                                                 "00000000"
                                                 "000000"));
  mesa.piezas.clear();
  mesa.reloj.avanzar(2000);
  EXPECT_EQ(mesa.piezas.join(), nodal("01000343",
                                      "00"
                                      "0010"
                                      "00000000"
                                      "00000000"
                                      "000000"))
      << "not acknowledged, so it comes again with its number";
  EXPECT_EQ(mesa.decir(nodal("00010706")), nodal("0100041A"));
  mesa.decir(nodal("00010806"));
  EXPECT_EQ(mesa.decir(nodal("0001094B")).mid(13), nodal("0100064B",
                                                         "00"
                                                         "0009"
                                                         "0000000398"
                                                         "0000000020"
                                                         "00002000"
                                                         "000001"
                                                         "0209"
                                                         "0000000500"
                                                         "0000000005"
                                                         "00000000"
                                                         "000002"));
  EXPECT_EQ(mesa.decir(nodal("00010A40")).mid(13),
            nodal("01000840", QByteArray(18, '0') + "0000000798"
                                                    "0000000025"
                                                    "00001500"
                                                    "000004"));
  EXPECT_EQ(mesa.decir(nodal("00010B43", "990000999999")), nodal("01000907")) << "bounds too wide";
  EXPECT_EQ(mesa.decir(nodal("00020C40")), "") << "another node's question";
}

TEST(Ebony, RechazaTotalesConUnTicketAbiertoYBorrarSinPonerACero) {
  Mesa mesa(opciones(Tipo::Ebony, 1));
  mesa.vender(5, 1, 9, 398, 2000);
  mesa.maquina->abrirTicket();
  EXPECT_EQ(mesa.decir(nodal("00010140")), nodal("01000107"));
  mesa.decir(nodal("00010227", "99"));
  EXPECT_NE(mesa.decir(nodal("00010340")), nodal("01000307"));
  EXPECT_EQ(mesa.decir(nodal("00010449")), nodal("01000507"));
  mesa.decir(nodal("00010547"));
  EXPECT_EQ(mesa.decir(nodal("00010649")), nodal("01000806") + nodal("0100091A"));
  EXPECT_TRUE(mesa.maquina->memoria().catalogo.empty());
}

TEST(Registradora, MandaUnRegistroPorConfirmacion) {
  Mesa mesa(opciones(Tipo::Registradora, 2));
  venderUnDia(mesa);
  const auto lista = [&](const QByteArray& pregunta) {
    QByteArrayList datos;
    QByteArray dicho = mesa.decir(vek(1, 2, pregunta));
    EXPECT_EQ(dicho.left(1), kAck);
    dicho.remove(0, 1);
    for (; !dicho.isEmpty(); dicho = mesa.decir(kAck)) datos += dicho.mid(8, dicho.size() - 11);
    return datos;
  };
  EXPECT_EQ(lista("2057" + QByteArray(12, ' ') + "118000"),
            (QByteArrayList{"00"
                            "0000002000005"
                            "0000002000"
                            "0000000298",
                            "00"
                            "8412345678905"
                            "0000002000"
                            "0000000500",
                            "00" + QByteArray(13, ' ') + QByteArray(20, '0')}));
  const QByteArrayList totales = lista("2060");
  ASSERT_EQ(totales.size(), 7);
  EXPECT_EQ(totales[1],
            "0012"
            "00"
            "0000000003"
            "0000000898");
  EXPECT_EQ(totales[2],
            "0017"
            "00"
            "0000000001"
            "000000-100");
  EXPECT_EQ(totales[4],
            "0001"
            "01"
            "0000002000"
            "0000000298");
  EXPECT_EQ(totales[5],
            "0001"
            "02"
            "0000002000"
            "0000000500");
  EXPECT_TRUE(totales[6].startsWith("0099"));
  EXPECT_EQ(mesa.decir(vek(1, 1, "2060")), "") << "another register's address";
}

TEST(Memoria, PonerACeroBorraContadoresYNuncaElLibro) {
  struct Caso {
    Tipo tipo;
    QByteArray orden;
    int conjuntos;
  } const casos[] = {{Tipo::Balanzas, vek(1, 0, "915"), kTodos},
                     {Tipo::Birch, vek(1, 0, "910"), kTodos},
                     {Tipo::Ebony, nodal("00000147"), kTodos},
                     {Tipo::Registradora, vek(1, 0, "3054"), kArticulos},
                     {Tipo::Registradora, vek(1, 0, "3056"), kTotales},
                     {Tipo::Registradora, vek(1, 0, "3058"), kPersonal}};
  for (const Caso& caso : casos) {
    Mesa mesa(opciones(caso.tipo));
    venderUnDia(mesa);
    const Memoria& memoria = mesa.maquina->memoria();
    const Contadores antes = memoria.contadores();
    EXPECT_EQ(antes, Contadores::de(memoria.libro()));
    mesa.decir(caso.orden);
    ASSERT_EQ(memoria.puestas().size(), 1U) << caso.orden.toStdString();
    EXPECT_EQ(memoria.puestas()[0].antes, antes);
    EXPECT_EQ(memoria.contadores().articulos.empty(), (caso.conjuntos & kArticulos) != 0);
    EXPECT_EQ(memoria.contadores().granTotal.vacia(), (caso.conjuntos & kTotales) != 0);
    EXPECT_EQ(memoria.contadores().departamentos.empty(), (caso.conjuntos & kTotales) != 0);
    EXPECT_EQ(memoria.contadores().operHora.empty(), (caso.conjuntos & kPersonal) != 0);
    EXPECT_EQ(memoria.libro().size(), 3U);
    mesa.vender(9, 1, 20, 250, 0);
    EXPECT_EQ(memoria.contadores().articulos.at(9).imp, caso.conjuntos & kArticulos ? 250 : 750);
  }
}

TEST(Memoria, LasListasSeOlvidanSoloCuandoSeDice) {
  Mesa mesa(opciones(Tipo::Balanzas));
  Memoria& memoria = mesa.maquina->memoria();
  memoria.apuntar(Lista::Pedidos, {5, 1500, 0});
  memoria.apuntar(Lista::Inventarios, {9, 0, 4});
  mesa.decir(vek(1, 0, "6100000"));
  EXPECT_EQ(memoria.lista(Lista::Pedidos).size(), 1U);
  mesa.decir(vek(2, 0, "8800"));
  EXPECT_TRUE(memoria.lista(Lista::Pedidos).empty());
  EXPECT_EQ(memoria.olvidos(Lista::Pedidos), 1);
  EXPECT_EQ(memoria.lista(Lista::Inventarios).size(), 1U);
}

TEST(Maquina, SuRelojEsElQueLePonen) {
  Mesa mesa(opciones(Tipo::Balanzas));
  mesa.decir(vek(1, 0,
                 "10"
                 "010120270059")
                 .replace("V0010", "V00010"));
  EXPECT_EQ(mesa.maquina->ahora().general(), QStringLiteral("18/05/2026 10:30:00")) << "bad frame";
  mesa.decir(vek(1, 0,
                 "010"
                 "010120270059"));
  mesa.reloj.avanzar(60000);
  EXPECT_EQ(mesa.maquina->ahora().general(), QStringLiteral("01/01/2027 01:00:00"));
  mesa.maquina->sell({.articulo = 9, .departamento = 0, .importe = 250});
  EXPECT_EQ(mesa.maquina->memoria().libro().back().hora, 1);
  EXPECT_EQ(mesa.maquina->memoria().libro().back().departamento, 2);
  EXPECT_EQ(mesa.decir(vek(2, 0,
                           "010"
                           "310220270059"))
                .mid(10, 5),
            "ERR01");
}

TEST(Estado, UnaMaquinaVuelveComoEstaba) {
  Mesa antes(opciones(Tipo::Registradora, 1));
  venderUnDia(antes);
  antes.decir(vek(1, 1, "3056"));
  antes.vender(9, 1, 20, 250, 0);
  antes.maquina->memoria().apuntar(Lista::Inventarios, {9, 0, 4});
  antes.maquina->memoria().olvidar(Lista::Pedidos);
  Mesa despues(opciones(Tipo::Registradora, 1));
  const QJsonObject json = estadoAJson(*antes.maquina, 3);
  const auto dias = restaurarEstado(*despues.maquina, json);
  ASSERT_TRUE(dias) << dias.error().texto.toStdString();
  EXPECT_EQ(*dias, 3);
  const Memoria &a = antes.maquina->memoria(), &b = despues.maquina->memoria();
  EXPECT_EQ(a.libro(), b.libro());
  EXPECT_EQ(a.contadores(), b.contadores());
  EXPECT_EQ(a.puestas(), b.puestas());
  EXPECT_EQ(a.catalogo, b.catalogo);
  EXPECT_EQ(a.lista(Lista::Inventarios), b.lista(Lista::Inventarios));
  EXPECT_EQ(json, estadoAJson(*despues.maquina, 3));
}

TEST(DiaDeVentas, EsElMismoParaLaMismaSemilla) {
  Mesa mesa(opciones(Tipo::Balanzas));
  const Dia dia{QDate(2026, 5, 18), 300, 0.2, 0.2};
  const auto ventas = ventasDelDia(mesa.maquina->memoria(), dia, 4);
  EXPECT_EQ(ventas, ventasDelDia(mesa.maquina->memoria(), dia, 4));
  EXPECT_NE(ventas, ventasDelDia(mesa.maquina->memoria(), dia, 5));
  const Contadores suma = Contadores::de(ventas);
  EXPECT_LT(suma.devoluciones.imp, 0);
  EXPECT_GT(suma.granTotal.sco, 0);
  EXPECT_FALSE(suma.operadores.contains(2)) << "nobody holds that position";
  for (const Venta& venta : ventas)
    EXPECT_GE(venta.importe * venta.peso, 0) << "the weight has the sign of the amount";
}

}  // namespace
}  // namespace tarvo::simulador
