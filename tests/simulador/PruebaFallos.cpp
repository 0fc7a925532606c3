#include "simulador/Json.h"
#include "simulador/Mesa.h"

namespace tarvo::simulador {
namespace {

const QByteArray kGranTotal =
    "850"
    "000000398"
    "000002000"
    "00000"
    "00001";

Fallos guion(Paso paso) {
  Fallos fallos;
  fallos.guion = {paso};
  return fallos;
}

struct MesaRota : Mesa {
  MesaRota(Tipo tipo, Paso paso)
      : Mesa(opciones(tipo, tipo == Tipo::Balanzas ? 0 : 1, guion(paso))) {
    vender(5, 1, 9, 398, 2000);
  }
};

// The second question meets the fault; the first and the third are answered as usual.
TEST(Fallos, DeUnaRespuestaDeBalanza) {
  const QByteArray buena1 = vek(1, 0, kGranTotal), buena2 = vek(2, 0, kGranTotal),
                   buena3 = vek(3, 0, kGranTotal);
  struct Caso {
    Averia averia;
    int valor;
    QByteArray segunda, tercera;
  } const casos[] = {
      {Averia::AckPerdido, -1, buena2, kAck + buena3},
      {Averia::Sorda, -1, "", kAck + buena2},
      {Averia::Nak, -1, "\x15", kAck + buena2},
      {Averia::Err, 4, kAck + vek(2, 0, "850ERR04"), kAck + buena3},
      {Averia::RespuestaPerdida, -1, kAck, kAck + buena3},
      {Averia::RespuestaTardia, -1, kAck, kAck + buena2 + buena3},
      {Averia::RespuestaDoble, -1, kAck + buena2 + buena3, kAck + vek(4, 0, kGranTotal)},
      {Averia::RespuestaPegada, -1, kAck + buena2, kAck + buena3},
      {Averia::ControlMalo, -1,
       kAck + buena2.chopped(3) + char('0' + (buena2[buena2.size() - 3] - '0' + 5) % 10) +
           buena2.right(2),
       kAck + buena3},
      {Averia::RegistroCorto, 10, kAck + vek(2, 0, kGranTotal.left(13)), kAck + buena3},
      {Averia::OtroCodigo, -1, kAck + vek(2, 0, "851" + kGranTotal.mid(3)), kAck + buena3},
  };
  for (const Caso& caso : casos) {
    SCOPED_TRACE(nombreAveria(caso.averia).toStdString());
    MesaRota mesa(Tipo::Balanzas, {caso.averia, 2, -1, 0, caso.valor});
    EXPECT_EQ(mesa.decir(vek(11, 0, "850")), kAck + buena1);
    EXPECT_EQ(mesa.decir(vek(12, 0, "850")), caso.segunda);
    EXPECT_EQ(mesa.piezas.size() == 1,
              !caso.segunda.startsWith(kAck)
                  ? !caso.segunda.isEmpty()
                  : caso.averia == Averia::RespuestaPegada || caso.segunda == kAck);
    EXPECT_EQ(mesa.decir(vek(13, 0, "850")), caso.tercera);
  }
}

TEST(Fallos, ConTiempo) {
  MesaRota partida(Tipo::Balanzas, {Averia::RespuestaPartida, 1});
  EXPECT_LT(partida.decir(vek(1, 0, "850")).size(), 20);
  partida.reloj.avanzar(80);
  EXPECT_EQ(partida.piezas.size(), 4);
  EXPECT_EQ(partida.piezas.join(), kAck + vek(1, 0, kGranTotal));

  MesaRota repetida(Tipo::Balanzas, {Averia::MismoNumero, 1});
  EXPECT_EQ(repetida.decir(vek(1, 0, "850")), kAck + vek(1, 0, kGranTotal));
  repetida.reloj.avanzar(10);
  EXPECT_EQ(repetida.piezas.back(), vek(1, 0, kGranTotal));

  MesaRota oscura(Tipo::Balanzas, {Averia::Oscura, 1, -1, 0, 5000});
  EXPECT_EQ(oscura.decir(vek(1, 0, "850")), "");
  oscura.cable.cerrar();
  EXPECT_FALSE(oscura.conectar());
  oscura.reloj.avanzar(5000);
  EXPECT_TRUE(oscura.conectar());
  EXPECT_EQ(oscura.decir(vek(2, 0, "850")), kAck + vek(1, 0, kGranTotal));

  MesaRota espera(Tipo::Ebony, {Averia::Espera, 1, -1, 0, 3});
  EXPECT_EQ(espera.decir(nodal("00010147")), nodal("01000106") + nodal("01000208", "3"));
  EXPECT_EQ(espera.decir(nodal("00010206")), "");
  espera.reloj.avanzar(500);
  EXPECT_EQ(espera.piezas.join(), nodal("0100031A"));
}

TEST(Fallos, DeLaLinea) {
  struct Caso {
    Paso paso;
    QByteArray dicho;
    bool limpio;
  } const casos[] = {{{Averia::Corte, 1, -1, 0, 0}, "", false},
                     {{Averia::Corte, 1, -1, 0, 1}, kAck, false},
                     {{Averia::Corte, 1, -1, 0, 2}, kAck + vek(1, 0, kGranTotal).left(20), false},
                     {{Averia::CierreLimpio, 1}, "", true}};
  for (const Caso& caso : casos) {
    MesaRota mesa(Tipo::Balanzas, caso.paso);
    EXPECT_EQ(mesa.decir(vek(1, 0, "850")), caso.dicho);
    EXPECT_EQ(mesa.cortes, std::vector<bool>{caso.limpio});
    EXPECT_FALSE(mesa.cable.abierto());
    EXPECT_TRUE(mesa.conectar());
    EXPECT_TRUE(mesa.decir(vek(1, 0, "850")).startsWith(kAck));
  }
  Fallos rechazos;
  rechazos.conexionesRechazadas = 1;
  Mesa mesa(opciones(Tipo::Balanzas, 0, rechazos));
  EXPECT_FALSE(mesa.cable.abierto());
  EXPECT_TRUE(mesa.conectar());
  EXPECT_FALSE(mesa.conectar()) << "one connection at a time";
}

TEST(Fallos, DeLoQueLaMaquinaHace) {
  const auto ventas = [](const Mesa& mesa) { return mesa.maquina->memoria().libro().size(); };
  const auto ceros = [](const Mesa& mesa) { return mesa.maquina->memoria().puestas().size(); };

  MesaRota venta(Tipo::Balanzas, {Averia::VentaEnMedio, 2});
  venta.decir(vek(1, 0, "850"));
  EXPECT_EQ(ventas(venta), 1U);
  venta.decir(vek(2, 0, "850"));
  EXPECT_EQ(ventas(venta), 2U);

  MesaRota callada(Tipo::Balanzas, {Averia::CeroSinRespuesta, 1, 915});
  EXPECT_EQ(callada.decir(vek(1, 0, "850")), kAck + vek(1, 0, kGranTotal));
  EXPECT_EQ(callada.decir(vek(2, 0, "915")), "");
  EXPECT_EQ(ceros(callada), 1U);
  EXPECT_EQ(callada.decir(vek(3, 0, "915")), kAck + vek(2, 0, "915"));

  MesaRota negada(Tipo::Balanzas, {Averia::CeroRechazado, 0});
  EXPECT_EQ(negada.decir(vek(1, 0, "915")), kAck + vek(1, 0, "915ERR01"));
  EXPECT_EQ(ceros(negada), 0U);

  MesaRota otra(Tipo::Balanzas, {Averia::OtroNumero, 0});
  EXPECT_EQ(otra.decir(vek(1, 0, "8300000004")).mid(10, 16),
            "0000005"
            "000000398");

  MesaRota rechazo(Tipo::Ebony, {Averia::Rechazo, 1});
  EXPECT_EQ(rechazo.decir(nodal("00010147")), nodal("01000107"));
  EXPECT_EQ(ceros(rechazo), 0U);
  MesaRota nak(Tipo::Ebony, {Averia::Nak, 1});
  EXPECT_EQ(nak.decir(nodal("00010147")), nodal("01000115"));
}

TEST(Fallos, UnaListaSinFinTieneUnTope) {
  Fallos fallos;
  fallos.guion = {{Averia::ListaSinFin, 1}};
  fallos.limiteLista = 50;
  Mesa balanza(opciones(Tipo::Balanzas, 0, fallos));
  balanza.vender(5, 1, 9, 398, 2000);
  int vueltas = 0;
  while (balanza.decir(vek(1, 0, "83500000060300")).mid(10, 7) == "0000005") ++vueltas;
  EXPECT_EQ(vueltas, 50);

  Mesa caja(opciones(Tipo::Registradora, 1, fallos));
  caja.vender(5, 1, 9, 398, 2000);
  int registros = 0;
  for (QByteArray dicho = caja.decir(vek(1, 1, "2060")); !dicho.isEmpty(); dicho = caja.decir(kAck))
    ++registros;
  EXPECT_GE(registros, 50);
  EXPECT_LE(registros, 60);
}

TEST(Fallos, PorAzarSonLosMismosConLaMismaSemilla) {
  Fallos fallos;
  for (double& probabilidad : fallos.probabilidad) probabilidad = 0.1;
  fallos.oscuraMs = 10;
  const auto noche = [&](quint64 semilla) {
    OpcionesMaquina con = opciones(Tipo::Balanzas, 0, fallos);
    con.semilla = semilla;
    Mesa mesa(con);
    QByteArray todo;
    for (int i = 0; i < 300; ++i) {
      todo += mesa.decir(vek(i % 100, 0, "850"));
      mesa.reloj.avanzar(100);
      todo += mesa.piezas.join();
      if (!mesa.cable.abierto()) mesa.conectar();
    }
    return todo;
  };
  EXPECT_EQ(noche(1), noche(1));
  EXPECT_NE(noche(1), noche(2));
}

TEST(Fallos, SeLeenDeLaConfiguracion) {
  for (std::size_t i = 0; i < kAverias; ++i) {
    const auto averia = static_cast<Averia>(i);
    EXPECT_EQ(averiaDeNombre(nombreAveria(averia)), averia);
  }
  const QJsonObject paso{{QStringLiteral("averia"), QStringLiteral("corte")},
                         {QStringLiteral("trama"), 3},
                         {QStringLiteral("valor"), 2}};
  const auto fallos = fallosDeJson({{QStringLiteral("guion"), QJsonArray{paso}}});
  ASSERT_TRUE(fallos);
  EXPECT_EQ(fallos->guion.at(0).trama, 3);
  const QJsonObject raro{{QStringLiteral("averia"), QStringLiteral("cortee")}};
  EXPECT_FALSE(fallosDeJson({{QStringLiteral("guion"), QJsonArray{raro}}}));
}

}  // namespace
}  // namespace tarvo::simulador
