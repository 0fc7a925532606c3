// A frame whose answer must be its own, on a wire that may still owe answers to earlier ones.
#include "enlace/BancoEnlaces.h"

using namespace tarvo;
using namespace tarvo::pruebas;
using namespace tarvo::enlace;

namespace {

struct Deudas : BancoEnlaces {
  static constexpr ModoEnvio kLimpia{.unaVez = false, .limpia = true};
  // Question 100 goes out twice and is answered once.
  comtvIP& repetida(comtvIP& e) {
    e.Enviar(0, 100, "A", kLimpia);
    reloj.avanzar(tiempos.TimeACK);
    cable().entra(ack + vek(1, 100));
    EXPECT_EQ(motor.nuevo(), u"EnvioVEK 0 1 100");
    EXPECT_TRUE(e.Repetida());
    return e;
  }
};

TEST_F(Deudas, LaMismaPreguntaEsperaUnaLineaCallada) {
  auto& e = repetida(abierto(Para::VekMotor));
  e.Enviar(0, 100, "B", kLimpia);
  EXPECT_EQ(tramasEnviadas(), 2U);
  reloj.avanzar(1000);
  cable().entra(ack + vek(2, 100));  // of the second copy: it is taken, but answers nothing
  EXPECT_EQ(cable().ultimo(), ack);
  reloj.avanzar(tiempos.TimeOut - 1);
  EXPECT_EQ(tramasEnviadas(), 2U);
  reloj.avanzar(1);
  EXPECT_EQ(tramasEnviadas(), 3U);
  cable().entra(ack + vek(2, 100) + vek(3, 100, "B"));  // sent again for lack of our ACK
  EXPECT_EQ(motor.nuevo(), u"EnvioVEK 0 1 100 B");
  EXPECT_FALSE(e.Repetida());
  // Nothing is owed any more, and a frame without need of proof never waits.
  e.Enviar(0, 100, "C", kLimpia);
  EXPECT_EQ(tramasEnviadas(), 4U);
}

TEST_F(Deudas, OtraPreguntaContestadaLasSalda) {
  auto& e = repetida(abierto(Para::VekMotor));
  e.Enviar(0, 101, "A", kLimpia);
  EXPECT_EQ(tramasEnviadas(), 3U);
  cable().entra(ack + vek(2, 100) + ack + vek(3, 101, "SI"));
  EXPECT_EQ(motor.nuevo(), u"EnvioVEK 0 1 101 SI");
  e.Enviar(0, 100, "B", kLimpia);
  EXPECT_EQ(tramasEnviadas(), 4U);
}

// So does one that goes out again because the machine repeated its last frame.
TEST_F(Deudas, TrasUnaTramaRepetidaTambienSeDebe) {
  auto& e = abierto(Para::VekMotor);
  e.Enviar(0, 10, "UNO");
  cable().entra(ack + vek(5, 10, "SI"));
  e.Enviar(0, 100, "A", kLimpia);
  cable().entra(ack + vek(5, 10, "SI"));
  reloj.avanzar(15000);
  EXPECT_EQ(tramasEnviadas(), 3U);
  motor.nuevo();
  cable().entra(ack + vek(6, 100));
  EXPECT_EQ(motor.nuevo(), u"EnvioVEK 0 1 100");
  EXPECT_TRUE(e.Repetida());
  e.Enviar(0, 100, "B", kLimpia);
  EXPECT_EQ(tramasEnviadas(), 3U);
  reloj.avanzar(tiempos.TimeOut);
  EXPECT_EQ(tramasEnviadas(), 4U);
}

// Its answer may come at any time, also after that to another question.
TEST_F(Deudas, UnSilencioSoloLoSaldaLaLineaCallada) {
  auto& e = abierto(Para::VekMotor);
  e.Enviar(0, 100, "A", kLimpia);
  cable().entra(ack);
  reloj.avanzar(tiempos.TimeOut);
  EXPECT_EQ(motor.nuevo(), u"EnvioVEK 17 -1 0");
  e.Enviar(0, 101, "A", kLimpia);
  cable().entra(ack + vek(1, 101, "NO"));
  EXPECT_EQ(motor.nuevo(), u"EnvioVEK 0 1 101 NO");
  e.Enviar(0, 100, "B", kLimpia);
  cable().entra(vek(2, 100));
  EXPECT_EQ(motor.nuevo(), u"");
  EXPECT_EQ(tramasEnviadas(), 2U);
  reloj.avanzar(tiempos.TimeOut);
  EXPECT_EQ(tramasEnviadas(), 3U);
}

// A shop's sales are no noise. If the line is never quiet the wait ends, and nothing was sent.
TEST_F(Deudas, LaEsperaAcaba) {
  auto& e = repetida(abierto(Para::VekMotor));
  e.Enviar(0, 100, "B", kLimpia);
  for (int s = 0; s < 9; ++s) {
    cable().entra(vek(10 + s, 995, "VENTA"));
    reloj.avanzar(tiempos.TimeOut / 10);
  }
  reloj.avanzar(tiempos.TimeOut / 10);
  EXPECT_EQ(tramasEnviadas(), 3U);
  e.Enviar(0, 100, "C", kLimpia);
  for (int s = 0; s < 40; ++s) {
    cable().entra(vek(30 + s, 830, "RUIDO"));
    reloj.avanzar(tiempos.TimeOut / 10);
  }
  EXPECT_EQ(motor.nuevo(), u"EnvioVEK 16 -1 0");
  EXPECT_EQ(tramasEnviadas(), 3U);
}

// Neither the closing of the link nor the end of a task clears the debts of the wire; another wire
// owes nothing.
TEST_F(Deudas, SonDelHiloYNoDelEnlace) {
  repetida(abierto(Para::VekMotor)).CerrarEnlace();
  reloj.avanzar(100);
  motor.nuevo();
  auto& otra = abierto(Para::VekMotor);
  otra.Enviar(0, 100, "B", kLimpia);
  EXPECT_EQ(tramasEnviadas(), 0U);
  reloj.avanzar(tiempos.TimeOut);
  EXPECT_EQ(tramasEnviadas(), 1U);
  abierto(Para::VekMotor, 1).Enviar(0, 100, "B", kLimpia);
  EXPECT_EQ(tramasEnviadas(), 1U);
}

// An acknowledgement of NODAL names nothing: after any copy the line has to be quiet.
TEST_F(Deudas, DeUnNodo) {
  auto& e = abierto(Para::NodalMotor);
  const auto ndl = [&](int secuencia, int codigo) {
    return tramas::construirNODAL({3, ajustes.WhoAmI, secuencia, codigo, {}});
  };
  e.Enviar(3, 32, "A", kLimpia);
  reloj.avanzar(tiempos.TimeACK);
  cable().entra(ndl(1, 6));
  EXPECT_EQ(motor.nuevo(), u"EnvioNDL 0");
  e.Enviar(3, 32, "B", kLimpia);
  reloj.avanzar(1000);
  cable().entra(ndl(2, 6));
  EXPECT_EQ(motor.nuevo(), u"");
  reloj.avanzar(tiempos.TimeOut);
  EXPECT_EQ(tramasEnviadas(), 3U);
  cable().entra(ndl(3, 7));
  EXPECT_EQ(motor.nuevo(), u"EnvioNDL 19");
}

}  // namespace
