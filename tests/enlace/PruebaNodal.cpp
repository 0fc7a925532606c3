// The NODAL half of the frame machine, through a link. Our node is 0, the machine's is 3.
#include "enlace/BancoEnlaces.h"

using namespace tarvo;
using namespace tarvo::pruebas;
using namespace tarvo::enlace;

namespace {

QByteArray ndl(int secuencia, int codigo, const QByteArray& datos = {}, int origen = 3,
               int destino = 0) {
  return tramas::construirNODAL({origen, destino, secuencia, codigo, datos});
}

struct MaquinaNodal : BancoEnlaces {
  // A link that asked for a list and waits for its frames.
  comtvIP& escuchando() {
    auto& e = abierto(Para::NodalMotor);
    e.Enviar(3, 64, "");
    cable().entra(ndl(1, 6));
    e.RxNODAL(3);
    motor.nuevo();
    return e;
  }
};

tramas::TramaNODAL leida(QByteArray bytes) {
  return tramas::leerNODAL(bytes).trama.value();
}

TEST_F(MaquinaNodal, ConfirmacionesPorCaso) {
  struct Caso {
    const char* nombre;
    QByteArray entra;
    QString oye;
    bool confirmada;  // it must have been acknowledged
  };
  QByteArray mala = ndl(9, 6);
  mala[2] = '4';
  const std::vector<Caso> casos{
      {"ack", ndl(9, 6), QStringLiteral("EnvioNDL 0"), false},
      {"rejected", ndl(9, 7), QStringLiteral("EnvioNDL 19"), true},
      {"NAK", ndl(9, 21), {}, false},
      {"bad check", mala, {}, false},
      {"from another node", ndl(9, 6, "", 4), {}, false},
      {"for another node", ndl(9, 6, "", 3, 1), {}, false},
      {"a data frame", ndl(9, 40, "X"), {}, false},
      {"garbage and ack", "zz\r" + ndl(9, 6), QStringLiteral("EnvioNDL 0"), false},
  };
  for (const auto& caso : casos) {
    SCOPED_TRACE(caso.nombre);
    auto& e = abierto(Para::NodalMotor);
    EXPECT_EQ(e.Enviar(3, 36, "DATOS"), 0);
    const auto nuestra = leida(cable().ultimo());
    EXPECT_EQ(nuestra, (tramas::TramaNODAL{0, 3, nuestra.secuencia, 36, "DATOS"}));
    cable().entra(caso.entra);
    EXPECT_EQ(motor.nuevo(), caso.oye);
    EXPECT_EQ(tramasEnviadas(), caso.confirmada ? 2U : 1U);
    if (caso.confirmada) {
      EXPECT_EQ(leida(cable().ultimo()),
                (tramas::TramaNODAL{0, 3, (nuestra.secuencia + 1) & 0xFF, 6, ""}));
    }
    enlaces.abandonar(0, &motor, &captura);
  }
}

TEST_F(MaquinaNodal, CuatroEnviosYLuego8) {
  abierto(Para::NodalMotor).Enviar(3, 36, "D");
  const int vaciados = cable().vaciados;
  const int primera = leida(cable().ultimo()).secuencia;
  cable().entra(ndl(200, 21));  // a NAK repeats nothing by itself
  EXPECT_EQ(tramasEnviadas(), 1U);
  reloj.avanzar(3 * tiempos.TimeACK);
  EXPECT_EQ(tramasEnviadas(), 4U);
  EXPECT_EQ(leida(cable().ultimo()), (tramas::TramaNODAL{0, 3, primera + 3, 36, "D"}));
  reloj.avanzar(tiempos.TimeACK);
  EXPECT_EQ(motor.nuevo(), u"EnvioNDL 8");
  EXPECT_EQ(cable().vaciados, vaciados + 1);
}

// The last number of one machine is no repeat when another machine uses it.
TEST_F(MaquinaNodal, CadaMaquinaCuentaLasSuyas) {
  auto& e = abierto(Para::NodalMotor);
  for (const int nodo : {3, 4, 3}) {
    e.Enviar(nodo, 36, "D");
    cable().entra(ndl(9, 6, {}, nodo));
    EXPECT_EQ(motor.nuevo(), u"EnvioNDL 0");
  }
}

TEST_F(MaquinaNodal, UnaOrdenUnicaNoSeRepite) {
  abierto(Para::NodalMotor).Enviar(3, 71, {}, {.unaVez = true});
  reloj.avanzar(tiempos.TimeACK);
  EXPECT_EQ(motor.nuevo(), u"EnvioNDL 8");
  EXPECT_EQ(tramasEnviadas(), 1U);
}

// Acknowledgement and list in one piece: each step is read by the state that the previous one led
// to.
TEST_F(MaquinaNodal, AckYListaPegados) {
  auto& e = abierto(Para::NodalMotor);
  motor.alOir = [&](const QString& texto) {
    if (!texto.contains(u" 26")) e.RxNODAL(3);
  };
  e.Enviar(3, 64, "");
  cable().entra(ndl(1, 6) + ndl(2, 65, "A") + ndl(2, 65, "A") + ndl(3, 65, "B") + ndl(4, 26));
  EXPECT_EQ(motor.nuevo(), u"EnvioNDL 0; ReciboNDL 0 65 A; ReciboNDL 0 65 B; ReciboNDL 0 26");
  EXPECT_EQ(tramasEnviadas(),
            5U);  // ours, and one acknowledgement for each frame, repeated ones too
}

TEST_F(MaquinaNodal, LoQueYaLlegoSeLeeAlEsperar) {
  auto& e = abierto(Para::NodalMotor);
  e.Enviar(3, 64, "");
  cable().entra(ndl(1, 6) + ndl(2, 65, "A"));
  EXPECT_EQ(motor.nuevo(), u"EnvioNDL 0");
  e.RxNODAL(3);
  EXPECT_EQ(motor.nuevo(), u"");
  reloj.avanzar(0);
  EXPECT_EQ(motor.nuevo(), u"ReciboNDL 0 65 A");
}

TEST_F(MaquinaNodal, TramasDeEspera) {
  struct Caso {
    const char* datos;
    int unidades;
  };
  for (const Caso& caso :
       {Caso{"", 1}, Caso{"0", 1}, Caso{"1", 1}, Caso{"30", 30}, Caso{" 4x", 4}}) {
    SCOPED_TRACE(caso.datos);
    escuchando();
    cable().entra(ndl(2, 8, caso.datos));
    reloj.avanzar(caso.unidades * tiempos.FactorEsperaNDL - 1);
    EXPECT_EQ(motor.nuevo(), u"");
    reloj.avanzar(1);
    EXPECT_EQ(motor.nuevo(), u"ReciboNDL 6 0");
    enlaces.abandonar(0, &motor, &captura);
  }
}

// Noise and a repeated wait frame must not bring the end of a long wait nearer.
TEST_F(MaquinaNodal, ElRuidoNoAcortaUnaEsperaPedida) {
  escuchando();
  cable().entra(ndl(2, 8, "50"));
  cable().entra(ndl(2, 8, "50") + "ruido\r");
  reloj.avanzar(99999);
  EXPECT_EQ(motor.nuevo(), u"");
  cable().entra(ndl(3, 65, "A"));
  EXPECT_EQ(motor.nuevo(), u"ReciboNDL 0 65 A");
}

TEST_F(MaquinaNodal, QuienSoloPideEsperaAcaba) {
  escuchando();
  for (int i = 0; i < 10000 && motor.oido.isEmpty(); ++i) {
    cable().entra(ndl(i & 0xFF, 8, i % 50 ? "1" : "99999999999999999999"));
    reloj.avanzar(1000);
  }
  EXPECT_EQ(motor.nuevo(), u"ReciboNDL 6 0");
}

TEST_F(MaquinaNodal, SinTrama6YLuegoCalla) {
  auto& e = escuchando();
  reloj.avanzar(10000);
  EXPECT_EQ(motor.nuevo(), u"ReciboNDL 6 0");
  cable().entra(ndl(2, 65, "TARDE"));
  reloj.avanzar(60000);
  EXPECT_EQ(motor.nuevo(), u"");
  e.RxNODAL(3);
  reloj.avanzar(0);
  EXPECT_EQ(motor.nuevo(), u"ReciboNDL 0 65 TARDE");
}

TEST_F(MaquinaNodal, LoQueNoEncajaSeConfirmaYPasa) {
  motor.regla = [](int addr, int codigo, const QByteArray& datos) {
    return addr == 3 && codigo == 65 && datos == "6";
  };
  auto& e = abierto(Para::NodalMotor);
  motor.alOir = [&](const QString& texto) {
    if (texto == u"EnvioNDL 0") e.RxNODAL(3);
  };
  e.Enviar(3, 64, "");
  cable().entra(ndl(1, 6) + ndl(2, 65, "5"));
  reloj.avanzar(9000);
  cable().entra(ndl(3, 65, "5"));
  EXPECT_EQ(motor.nuevo(), u"EnvioNDL 0");
  reloj.avanzar(999);
  cable().entra(ndl(4, 65, "6"));
  EXPECT_EQ(motor.nuevo(), u"ReciboNDL 0 65 6");
  e.RxNODAL(3);
  cable().entra(ndl(5, 7, "NO"));
  EXPECT_EQ(motor.nuevo(), u"ReciboNDL 19 7 NO");
}

TEST_F(MaquinaNodal, UnaConfirmacionDeAntesNoVale) {
  auto& e = abierto(Para::NodalMotor);
  motor.alOir = [&](const QString& texto) {
    if (texto == u"EnvioNDL 0" && motor.oido.size() == 1) e.Enviar(3, 37, "SEIS");
  };
  e.Enviar(3, 37, "CINCO");
  cable().entra(ndl(1, 6) + ndl(2, 6));  // both sends of the first were acknowledged
  EXPECT_EQ(motor.oido.join(u';'), u"EnvioNDL 0");
}

}  // namespace
