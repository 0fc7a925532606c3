// The VEK half of the frame machine, through a link.
#include "enlace/BancoEnlaces.h"

using namespace tarvo;
using namespace tarvo::pruebas;
using namespace tarvo::enlace;

namespace {

using MaquinaVEK = BancoEnlaces;

int secuenciaDe(const QByteArray& trama) {
  return trama.mid(1, 2).toInt();
}

// The input, and the client's events for each piece.
struct Conversacion {
  const char* nombre;
  int codigo;
  bool pedir;
  int timeOut;
  std::vector<std::pair<QByteArray, QString>> pasos;  // bytes in, then the events
  QByteArray acks;                                    // every ACK byte that must have been sent
};

TEST_F(MaquinaVEK, RespuestasPorCaso) {
  const QString no;
  const QByteArray r = vek(5, 10, "SI"), otro = vek(6, 11, "NO"), r2 = vek(7, 10, "DOS");
  QByteArray mala = r;
  mala[10] = 'X';
  const QString bien = QStringLiteral("EnvioVEK 0 1 10 SI");
  const std::vector<Conversacion> casos{
      {"ack, then the answer", 10, false, 10000, {{ack, no}, {r, bien}}, ack},
      {"both in one piece", 10, false, 10000, {{ack + r, bien}}, ack},
      {"both in one piece for Pedir",
       10,
       true,
       10000,
       {{ack + r, QStringLiteral("ReciboVEK 0 1 10 SI")}},
       ack},
      {"split in the middle", 10, false, 10000, {{ack + r.left(4), no}, {r.mid(4), bien}}, ack},
      {"the last of two",
       10,
       false,
       10000,
       {{ack + r + r2, QStringLiteral("EnvioVEK 0 1 10 DOS")}},
       ack},
      {"good and bad in one piece", 10, false, 10000, {{ack, no}, {r + mala, no}, {r, bien}}, ack},
      {"another code is passed over", 10, false, 10000, {{ack + otro, no}, {r, bien}}, ack + ack},
      {"ACK alone is the answer", 10, false, -1, {{ack, QStringLiteral("EnvioVEK 0 -1 0")}}, ""},
      {"no ACK yet: the frame only gets its own",
       10,
       false,
       10000,
       {{r, no}, {ack, no}, {r2, QStringLiteral("EnvioVEK 0 1 10 DOS")}},
       ack + ack},
      {"a late frame and the ACK in one piece",
       10,
       false,
       10000,
       {{otro + ack + r, bien}},
       ack + ack},
      {"a second ACK in front of the answer", 10, false, 10000, {{ack + ack + r, bien}}, ack},
  };
  for (const auto& caso : casos) {
    SCOPED_TRACE(caso.nombre);
    abierto(Para::VekMotor).TimeOut(caso.timeOut);
    auto& e = *enlaces[0];
    EXPECT_EQ((caso.pedir ? e.Pedir(0, caso.codigo, "D") : e.Enviar(0, caso.codigo, "D")), 0);
    for (const auto& [entra, oye] : caso.pasos) {
      cable().entra(entra);
      EXPECT_EQ(motor.nuevo(), oye);
    }
    QByteArray acks;
    for (const auto& b : cable().enviados)
      if (b == ack) acks += b;
    EXPECT_EQ(acks, caso.acks);
    enlaces.abandonar(0, &motor, &captura);
  }
}

// Under another code only a refusal answers, or any fitting frame if the client allows it; never
// one with an owed code.
TEST_F(MaquinaVEK, ConElCodigoDeOtraPregunta) {
  for (const bool otroCodigo : {false, true}) {
    auto& e = abierto(Para::VekMotor);
    e.Enviar(0, 10, "A", {.otroCodigo = otroCodigo});
    cable().entra(ack + vek(5, 11, "ERR01"));
    EXPECT_EQ(motor.nuevo(), u"EnvioVEK 0 1 11 ERR01");
    e.Enviar(0, 10, "B", {.otroCodigo = otroCodigo});
    cable().entra(ack + vek(6, 12, "SI"));
    EXPECT_EQ(motor.nuevo(), otroCodigo ? u"EnvioVEK 0 1 12 SI" : u"");
    reloj.avanzar(60'000);
    motor.nuevo();
    e.Enviar(0, 13, "C");
    reloj.avanzar(60'000);  // never answered, and owed from now on
    motor.nuevo();
    e.Enviar(0, 14, "D", {.otroCodigo = otroCodigo});
    cable().entra(ack + vek(7, 13, "ERR05") + vek(8, 13, "SI"));
    EXPECT_EQ(motor.nuevo(), u"");
    cable().entra(vek(9, 14, "SI"));
    EXPECT_EQ(motor.nuevo(), u"EnvioVEK 0 1 14 SI");
    enlaces.abandonar(0);
    motor.nuevo();
  }
}

TEST_F(MaquinaVEK, FormaAnchaSinDireccion) {
  auto& e = abierto(Para::VekMotor);
  e.Pedir(0, 2057, "");
  cable().entra(ack + tramas::construirVEK(5, "20571X"));
  EXPECT_EQ(motor.nuevo(), u"ReciboVEK 0 -1 2057 1X");
}

TEST_F(MaquinaVEK, CuatroEnviosConNumeroNuevoYLuego16) {
  auto& e = abierto(Para::VekMotor);
  e.Enviar(0, 10, "D");
  const int primera = secuenciaDe(cable().ultimo());
  for (int i = 1; i <= 3; ++i) {
    reloj.avanzar(tiempos.TimeACK - 1);
    EXPECT_EQ(tramasEnviadas(), static_cast<size_t>(i));
    reloj.avanzar(1);
    EXPECT_EQ(secuenciaDe(cable().ultimo()), (primera + i) % 100);
    cable().entra(i == 1 ? QByteArray(1, tramas::kNAK) : QByteArray());
  }
  EXPECT_EQ(cable().ultimo(), vek((primera + 3) % 100, 10, "D", 0));
  reloj.avanzar(tiempos.TimeACK);
  EXPECT_EQ(motor.nuevo(), u"EnvioVEK 16 -1 0");
  EXPECT_EQ(tramasEnviadas(), 4U);
  EXPECT_EQ(cable().vaciados, 1);
  reloj.avanzar(60000);
  EXPECT_EQ(motor.nuevo(), u"");
}

TEST_F(MaquinaVEK, ElNumeroVaDe99A0) {
  auto& e = abierto(Para::VekMotor);
  std::vector<int> vistos;
  for (int i = 0; i < 120; ++i) {
    e.Enviar(0, 10, "");
    vistos.push_back(secuenciaDe(cable().ultimo()));
  }
  for (size_t i = 1; i < vistos.size(); ++i) EXPECT_EQ(vistos[i], (vistos[i - 1] + 1) % 100);
}

TEST_F(MaquinaVEK, LoQueNoEsAckNoTapaElAckQueViene) {
  auto& e = abierto(Para::VekMotor);
  e.Enviar(0, 10, "D");
  cable().entra(QByteArray(1, tramas::kNAK));
  reloj.avanzar(tiempos.TimeACK);
  cable().entra(ack + vek(5, 10, "SI"));
  EXPECT_EQ(motor.nuevo(), u"EnvioVEK 0 1 10 SI");
}

TEST_F(MaquinaVEK, SinRespuesta17DespuesDeTodoSuTiempo) {
  auto& e = abierto(Para::VekMotor);
  e.TimeOut(150000);  // beyond the step of the timer
  e.Pedir(0, 10, "D");
  cable().entra(ack);
  reloj.avanzar(149999);
  EXPECT_EQ(motor.nuevo(), u"");
  reloj.avanzar(1);
  EXPECT_EQ(motor.nuevo(), u"EnvioVEK 17 -1 0");
  EXPECT_EQ(cable().vaciados, 1);
}

// A frame that answers another question doesn't prolong the wait, however often it comes.
TEST_F(MaquinaVEK, LasTramasAjenasNoAlarganLaEspera) {
  motor.regla = [](int, int, const QByteArray& datos) { return datos == "6"; };
  auto& e = abierto(Para::VekMotor);
  e.Enviar(0, 10, "6");
  cable().entra(ack);
  for (int i = 0; i < 9; ++i) {
    reloj.avanzar(1000);
    cable().entra(vek(20 + i, 10, "5"));
  }
  EXPECT_EQ(motor.nuevo(), u"");
  reloj.avanzar(999);
  EXPECT_EQ(motor.nuevo(), u"");
  reloj.avanzar(1);
  EXPECT_EQ(motor.nuevo(), u"EnvioVEK 17 -1 0");
}

TEST_F(MaquinaVEK, LaRespuestaTardiaNoValePorLaSiguiente) {
  motor.regla = [](int, int, const QByteArray& datos) { return datos == "6"; };
  auto& e = abierto(Para::VekMotor);
  e.Enviar(0, 10, "6");
  cable().entra(ack + vek(20, 10, "5"));
  cable().entra(vek(21, 10, "6"));
  EXPECT_EQ(motor.nuevo(), u"EnvioVEK 0 1 10 6");
}

// The flood: garbage and transactions prolong a wait, but not for ever.
TEST_F(MaquinaVEK, TodaEsperaTieneFin) {
  const std::vector<QByteArray> riadas{QByteArray("\x02x\x03"),
                                       QByteArray("\x02"
                                                  "12"),
                                       vek(1, 995, "T"), "z"};
  for (const QByteArray& riada : riadas) {
    for (const bool conAck : {false, true}) {
      auto& e = abierto(Para::VekMotor);
      e.Enviar(0, 10, "D");
      if (conAck) cable().entra(ack);
      for (int i = 0; i < 100 && motor.oido.isEmpty(); ++i) {
        cable().entra(riada);
        reloj.avanzar(900);
      }
      EXPECT_EQ(motor.nuevo(), conAck ? u"EnvioVEK 17 -1 0" : u"EnvioVEK 16 -1 0");
      enlaces.abandonar(0, &motor, &captura);
    }
  }
}

TEST_F(MaquinaVEK, UnaTransaccionEnMedioDaTiempoNuevo) {
  abierto(Para::VekMotor);
  EXPECT_EQ(enlaces.AbrirEnlace(Para::VekCaptura, 0, 0, {}, nullptr, &captura), 0);
  reloj.avanzar(10);
  captura.nuevo();
  enlaces[0]->Enviar(0, 10, "D");
  cable().entra(ack);
  reloj.avanzar(9000);
  cable().entra(vek(9, 995, "VENTA", 3));
  EXPECT_EQ(captura.nuevo(), u"Tx 3 VENTA");
  reloj.avanzar(9000);
  EXPECT_EQ(motor.nuevo(), u"");
  cable().entra(vek(10, 10, "SI"));
  EXPECT_EQ(motor.nuevo(), u"EnvioVEK 0 1 10 SI");
}

// Sales: each one once, whatever it is glued to and whatever the layout of the answer.
TEST_F(MaquinaVEK, TransaccionesTodasYUnaSolaVez) {
  abierto(Para::VekMotor);
  enlaces.AbrirEnlace(Para::VekCaptura, 0, 0, {}, nullptr, &captura);
  reloj.avanzar(10);
  captura.nuevo();
  cable().entra(vek(1, 995, "A") + vek(2, 995, "B"));
  EXPECT_EQ(captura.nuevo(), u"Tx 1 A; Tx 1 B");
  cable().entra(vek(2, 995, "B"));  // again: our acknowledgement was lost
  EXPECT_EQ(captura.nuevo(), u"");
  enlaces[0]->Pedir(0, 2057, "");
  cable().entra(ack + vek(3, 995, "15C", 1) + tramas::construirVEK(4, "20571X"));
  EXPECT_EQ(captura.nuevo(), u"Tx 1 15C");
  EXPECT_EQ(motor.nuevo(), u"ReciboVEK 0 -1 2057 1X");
  cable().entra(vek(4, 995, "D"));  // the number of the last answer, but no answer
  EXPECT_EQ(captura.nuevo(), u"Tx 1 D");
}

TEST_F(MaquinaVEK, TramaRepetidaEspera15sYVuelveAEnviar) {
  auto& e = abierto(Para::VekMotor);
  e.Enviar(0, 10, "UNO");
  cable().entra(ack + vek(5, 10, "SI"));
  motor.nuevo();
  e.Enviar(0, 11, "DOS");
  cable().entra(ack + vek(5, 10, "SI"));
  EXPECT_EQ(cable().ultimo(), ack);
  reloj.avanzar(14999);
  EXPECT_EQ(tramasEnviadas(), 2U);
  reloj.avanzar(1);
  EXPECT_EQ(tramasEnviadas(), 3U);
  EXPECT_EQ(cable().ultimo(), vek(cable().ultimo().mid(1, 2).toInt(), 11, "DOS", 0));
  reloj.avanzar(14999);  // its acknowledgement has the same time
  EXPECT_EQ(tramasEnviadas(), 3U);
  cable().entra(ack + vek(6, 11, "SI"));
  EXPECT_EQ(motor.nuevo(), u"EnvioVEK 0 1 11 SI");
}

// Two registers of one wire with equal counts. The answer of the second may be a repeat of the
// previous one by the first, so its question is repeated until a number proves it; one extra frame
// keeps the counts apart.
TEST_F(MaquinaVEK, OtraMaquinaConElMismoNumero) {
  auto& e = abierto(Para::VekMotor);
  const auto ancha = [](int secuencia) { return tramas::construirVEK(secuencia, "400300"); };
  const QString bien = QStringLiteral("EnvioVEK 0 -1 4003 00");
  e.Enviar(4, 4003, "UNO");
  cable().entra(ack + ancha(1));
  EXPECT_EQ(motor.nuevo(), bien);
  e.Enviar(9, 4003, "UNO");
  for (const int numero : {1, 2}) {
    cable().entra(ack + ancha(numero));
    EXPECT_EQ(motor.nuevo(), u"") << numero;
  }
  EXPECT_EQ(tramasEnviadas(), 4U);
  cable().entra(ack + ancha(3));
  EXPECT_EQ(motor.nuevo(), bien);
  e.Enviar(4, 4003, "DOS");
  cable().entra(ack + ancha(2));
  EXPECT_EQ(motor.nuevo(), bien);
  e.Enviar(9, 4003, "DOS");
  cable().entra(ack + ancha(4));
  EXPECT_EQ(motor.nuevo(), bien);
  EXPECT_EQ(tramasEnviadas(), 6U);
}

// It was the first register after all: its frame answers nothing, however often it comes.
TEST_F(MaquinaVEK, LaPrimeraQueSeRepiteNoContestaPorLaSegunda) {
  auto& e = abierto(Para::VekMotor);
  const auto ancha = [](int secuencia) { return tramas::construirVEK(secuencia, "400300"); };
  e.Enviar(4, 4003, "UNO");
  cable().entra(ack + ancha(1));
  motor.nuevo();
  e.Enviar(9, 4003, "UNO");
  for (int i = 0; i < 3; ++i) {
    cable().entra(ack + ancha(1));
    EXPECT_EQ(motor.nuevo(), u"");
  }
  EXPECT_EQ(tramasEnviadas(), 3U);  // the second time it waits until the first register is quiet
  reloj.avanzar(15000);
  EXPECT_EQ(tramasEnviadas(), 4U);
  for (const int numero : {7, 8}) cable().entra(ack + ancha(numero));
  EXPECT_EQ(motor.nuevo(), u"EnvioVEK 0 -1 4003 00");
}

TEST_F(MaquinaVEK, QuienSoloSeRepiteAcabaEn17) {
  auto& e = abierto(Para::VekMotor);
  e.Enviar(0, 10, "UNO");
  cable().entra(ack + vek(5, 10, "SI"));
  motor.nuevo();
  e.Enviar(0, 11, "DOS");
  for (int i = 0; i < 20 && motor.oido.isEmpty(); ++i) {
    cable().entra(ack + vek(5, 10, "SI"));
    reloj.avanzar(15000);
  }
  EXPECT_EQ(motor.nuevo(), u"EnvioVEK 17 -1 0");
}

// At rest there is no question: a repeated frame must not repeat a command.
TEST_F(MaquinaVEK, EnReposoSoloPasanTransacciones) {
  abierto(Para::VekMotor);
  enlaces.AbrirEnlace(Para::VekCaptura, 0, 0, {}, nullptr, &captura);
  reloj.avanzar(10);
  enlaces[0]->Enviar(0, 10, "CERO");
  cable().entra(ack + vek(5, 10, "SI"));
  motor.nuevo();
  cable().entra(vek(5, 10, "SI"));
  cable().entra(vek(6, 10, "SI"));
  reloj.avanzar(60000);
  EXPECT_EQ(tramasEnviadas(), 1U);
  EXPECT_EQ(motor.nuevo(), u"");
}

TEST_F(MaquinaVEK, RxVEKEsperaSuCodigoSinEnviarNada) {
  auto& e = abierto(Para::VekMotor);
  motor.regla = [](int, int codigo, const QByteArray&) { return codigo == 57; };
  motor.alOir = [&](const QString& texto) {
    if (texto.endsWith(u"UNO")) e.RxVEK(1, 57);
  };
  e.Pedir(0, 57, "");
  cable().entra(ack + vek(5, 57, "UNO"));
  cable().entra(vek(6, 58, "OTRO"));
  cable().entra(vek(7, 57, "DOS"));
  EXPECT_EQ(motor.nuevo(), u"ReciboVEK 0 1 57 UNO; ReciboVEK 0 1 57 DOS");
  EXPECT_EQ(tramasEnviadas(), 1U);
  e.RxVEK(1, 57);
  reloj.avanzar(10000);
  EXPECT_EQ(motor.nuevo(), u"EnvioVEK 17 -1 0");
}

TEST_F(MaquinaVEK, UnAckDeAntesNoVale) {
  auto& e = abierto(Para::VekMotor);
  cable().entra(ack);
  e.TimeOut(-1);
  e.Enviar(0, 10, "");
  cable().entra("");
  EXPECT_EQ(motor.nuevo(), u"");
  cable().entra(ack);
  EXPECT_EQ(motor.nuevo(), u"EnvioVEK 0 -1 0");
}

// Neither a lost acknowledgement nor a machine that repeats its last frame, this one or another,
// sends it again.
TEST_F(MaquinaVEK, UnaOrdenUnicaNoSeRepite) {
  for (const int repetida : {0, 1, 2}) {
    auto& e = abierto(Para::VekMotor);
    if (repetida > 0) {
      e.Enviar(repetida, 10, {});
      cable().entra(ack + vek(5, 10, "SI"));
      EXPECT_EQ(motor.nuevo(), u"EnvioVEK 0 1 10 SI");
    }
    const auto antes = tramasEnviadas();
    e.Enviar(1, 910, {}, {.unaVez = true});
    if (repetida > 0) cable().entra(ack + vek(5, 10, "SI"));
    reloj.avanzar(60'000);
    EXPECT_EQ(motor.nuevo().left(11), repetida > 0 ? u"EnvioVEK 17" : u"EnvioVEK 16");
    EXPECT_EQ(tramasEnviadas(), antes + 1);
    enlaces.abandonar(0, &motor, &captura);
  }
}

}  // namespace
