// Opening, sharing and ending of links, with wires in memory.
#include "comm/cables/Parametros.h"
#include "comm/enlace/Errores.h"
#include "enlace/BancoEnlaces.h"

using namespace tarvo;
using namespace tarvo::pruebas;
using namespace tarvo::enlace;

namespace {

using Enlace = BancoEnlaces;

TEST(Parametros, PorDeviceYGrupo) {
  ParamCanal canal;
  canal.Puerto = 2;
  canal.Device = TipoAcceso::Directo;
  EXPECT_EQ(parametrosDe(canal, 0, QStringLiteral("912")).rs232, u"9600,O,7,1");
  EXPECT_EQ(parametrosDe(canal, 19200, {}).rs232, u"19200,O,7,1");
  EXPECT_EQ(parametrosDe(canal, 0, QStringLiteral("912")).telefono, u"");
  canal.Device = TipoAcceso::Modem;
  EXPECT_EQ(parametrosDe(canal, 0, QStringLiteral("912")).telefono, u"912");
  canal.Device = TipoAcceso::TcpIp;
  struct Caso {
    QStringView acceso;
    QStringView host;
    int tcp, puerto;
  };
  for (const Caso& c :
       {Caso{u"10.0.0.7:9100", u"10.0.0.7", 9100, 2}, Caso{u"bza:80,5", u"bza", 80, 5},
        Caso{u"bza:80,x", u"bza", 80, 2}, Caso{u"bza", u"bza", 0, 2}}) {
    const auto p = parametrosDe(canal, 0, c.acceso.toString());
    EXPECT_EQ(p.host, c.host);
    EXPECT_EQ(p.puertoTcp, c.tcp);
    EXPECT_EQ(p.puerto, c.puerto);
  }
}

TEST(Parametros, GuionDelModem) {
  ParamCanal canal;
  canal.IniMdm0 = QStringLiteral("I");
  canal.IniMdmX = {QStringLiteral("A"), QStringLiteral("B")};
  EXPECT_EQ(guionModem(canal), u"I||I|0[Cr]|A||B|");
  canal.IniMdmX.clear();
  EXPECT_EQ(guionModem(canal), u"I||I|0[Cr]");
  canal.IniMdm0.clear();
  canal.IniMdmX = {QStringLiteral("A")};
  EXPECT_EQ(guionModem(canal), u"A|");
}

TEST_F(Enlace, RazonesDeAperturaYDeCierre) {
  const std::vector<std::pair<int, int>> razones{
      {1, 4},   {2, 18},  {3, 10},  {4, 11},  {5, 12},   {6, 11},  {7, 11},
      {8, 13},  {9, 31},  {10, 10}, {11, 29}, {12, 26},  {13, 23}, {14, 30},
      {15, 28}, {16, 24}, {17, 27}, {18, 25}, {19, 200}, {-1, 200}};
  for (const auto& [razon, error] : razones) {
    fabrica.preparar = [r = razon](MandoCable& c) { c.razonApertura = r; };
    EXPECT_EQ(enlaces.AbrirEnlace(Para::VekMotor, 0, 0, {}, &motor), 0);
    reloj.avanzar(5);
    EXPECT_EQ(motor.nuevo(), QStringLiteral("Abrir %1").arg(error));
    EXPECT_EQ(enlaces[0], nullptr);
  }
  EXPECT_EQ(errorDeCierre(-1, false), 20);
  EXPECT_EQ(errorDeCierre(-1, true), 0);
}

TEST_F(Enlace, LosValoresDelCanalLleganAlCable) {
  cables.canales[1].Device = TipoAcceso::Modem;
  cables.canales[1].Espera = 55;
  enlaces.AbrirEnlace(Para::VekMotor, 1, 2400, QStringLiteral("912345678"), &motor);
  EXPECT_EQ(cable().device, TipoAcceso::Modem);
  EXPECT_EQ(cable().parametros.telefono, u"912345678");
  EXPECT_EQ(cable().parametros.rs232, u"2400,O,7,1");
  EXPECT_EQ(cable().parametros.espera, 55);
  EXPECT_EQ(enlaces[1]->Acceso(), u"912345678");
  EXPECT_EQ(enlaces[1]->AbiertoPara(), Para::VekMotor);
}

TEST_F(Enlace, LoQueSeNiegaAlMomentoNoDaEvento) {
  fabrica.preparar = [](MandoCable& c) { c.seConfigura = false; };
  fabrica.razones = {{QStringLiteral("NADIE"), kSinNombre}, {QStringLiteral("OTRO"), kEnUso}};
  EXPECT_EQ(enlaces.AbrirEnlace(Para::VekMotor, 0, 0, {}, &motor), 4);
  EXPECT_EQ(enlaces.AbrirEnlace(Para::VekMotor, 4, 0, QStringLiteral("NADIE"), &motor), 24);
  EXPECT_EQ(enlaces.AbrirEnlace(Para::VekMotor, 4, 0, QStringLiteral("OTRO"), &motor), 27);
  EXPECT_EQ(enlaces.AbrirEnlace(Para::VekMotor, -1, 0, {}, &motor), 14);
  EXPECT_EQ(enlaces.AbrirEnlace(Para::VekAmbos, 0, 0, {}, &motor), 14);
  fabrica.preparar = nullptr;
  EXPECT_EQ(enlaces.AbrirEnlace(Para::VekMotor, 7, 0, QStringLiteral("TIENDA"), &motor), 0);
  EXPECT_EQ(enlaces.AbrirEnlace(Para::VekMotor, 5, 0, QStringLiteral("tienda"), &motor), 27);
  EXPECT_EQ(enlaces.tamano(), 8);
  reloj.avanzar(100);
  EXPECT_EQ(motor.nuevo(), u"Abrir 0");
  EXPECT_EQ(enlaces[5], nullptr);
}

TEST_F(Enlace, CerradoNoEnvia) {
  enlaces.AbrirEnlace(Para::VekMotor, 0, 0, {}, &motor);
  auto& e = *enlaces[0];
  EXPECT_EQ(e.Enviar(0, 10, ""), 15);
  EXPECT_EQ(e.Pedir(0, 10, ""), 15);
  reloj.avanzar(5);
  EXPECT_EQ(e.RxNODAL(0), 15);
  EXPECT_EQ(e.Enviar(0, 10, ""), 0);
  e.CerrarEnlace();
  EXPECT_EQ(e.Enviar(0, 10, ""), 15);
  reloj.avanzar(20);
  motor.nuevo();
  auto& n = abierto(Para::NodalMotor, 1);
  EXPECT_EQ(n.Pedir(0, 10, ""), 15);
  EXPECT_EQ(n.RxVEK(0, 10), 15);
}

TEST_F(Enlace, CierrePedidoYCaidas) {
  struct Caso {
    const char* nombre;
    int canal, razon;
    QStringView oye;
  };
  for (const Caso& c : {Caso{"asked for", 0, 0, u"Cerrar 0"}, Caso{"badly", 0, 3, u"Cerrar 20"},
                        Caso{"connector, negative", 4, -1, u"Cerrar 0"}}) {
    SCOPED_TRACE(c.nombre);
    auto& e = abierto(Para::VekMotor, c.canal, QStringLiteral("X"));
    cable().razonCierre = c.razon;
    e.Enviar(0, 10, "");
    e.CerrarEnlace();
    reloj.avanzar(1);
    EXPECT_EQ(motor.nuevo(), c.oye);
    EXPECT_EQ(enlaces[c.canal], nullptr);
    EXPECT_FALSE(cable().destruido);
    reloj.avanzar(10);
    EXPECT_TRUE(cable().destruido);
    reloj.avanzar(60000);
    EXPECT_EQ(motor.nuevo(), u"");
  }
  abierto(Para::VekMotor);
  cable().cae(0);  // by itself and without error: it is reported all the same
  EXPECT_EQ(motor.nuevo(), u"Cerrar 0");
}

TEST_F(Enlace, CerrarMientrasAbreAcabaEn13) {
  for (const bool cumple : {true, false}) {
    fabrica.preparar = [=](MandoCable& c) { c.abreSolo = false, c.cierraSolo = cumple; };
    enlaces.AbrirEnlace(Para::VekMotor, 0, 0, {}, &motor);
    enlaces[0]->CerrarEnlace();
    reloj.avanzar(cumple ? 5 : 60000);
    EXPECT_EQ(motor.nuevo(), u"Abrir 13");
    EXPECT_EQ(enlaces[0], nullptr);
  }
}

TEST_F(Enlace, UnCableQueNoDiceNadaTambienAcaba) {
  fabrica.preparar = [](MandoCable& c) { c.abreSolo = false; };
  enlaces.AbrirEnlace(Para::VekMotor, 0, 0, {}, &motor);
  reloj.avanzar(61000);
  EXPECT_EQ(motor.nuevo(), u"Abrir 5");
  fabrica.preparar = [](MandoCable& c) { c.cierraSolo = false; };
  abierto(Para::VekMotor).CerrarEnlace();
  reloj.avanzar(60000);
  EXPECT_EQ(motor.nuevo(), u"Cerrar 20");
  EXPECT_TRUE(cable().destruido);
}

TEST_F(Enlace, Portadora) {
  cables.canales[0].Device = TipoAcceso::Modem;
  cables.canales[1].Device = TipoAcceso::Directo;
  auto& e = abierto(Para::VekMotor, 0, QStringLiteral("912"));
  EXPECT_TRUE(e.Portadora());
  cable().oyente->linea(6);
  EXPECT_FALSE(e.Portadora());
  cable().oyente->linea(5);
  EXPECT_TRUE(e.Portadora());
  EXPECT_EQ(motor.nuevo(), u"CD 0; CD 1");
  auto& directo = abierto(Para::VekMotor, 1);
  cable().oyente->linea(6);
  EXPECT_TRUE(directo.Portadora());
  EXPECT_EQ(motor.nuevo(), u"");
  EXPECT_EQ(directo.Acceso(), u"2");
}

// --- two clients on one link ---

TEST_F(Enlace, SeComparteSinReabrirYSinPerderLoEnVuelo) {
  auto& e = abierto(Para::VekMotor);
  e.Enviar(0, 10, "D");
  cable().entra(ack);
  EXPECT_EQ(enlaces.AbrirEnlace(Para::VekCaptura, 0, 0, {}, nullptr, &captura), 0);
  EXPECT_EQ(captura.nuevo(), u"");
  reloj.avanzar(10);
  EXPECT_EQ(captura.nuevo(), u"Abrir 0");
  EXPECT_EQ(fabrica.cables.size(), 1U);
  EXPECT_EQ(e.AbiertoPara(), Para::VekAmbos);
  reloj.avanzar(9989);
  EXPECT_EQ(motor.nuevo(), u"");
  reloj.avanzar(1);
  EXPECT_EQ(motor.nuevo(), u"EnvioVEK 17 -1 0");
}

TEST_F(Enlace, CadaUnoSeVaPorSuLado) {
  for (const bool primeroMotor : {true, false}) {
    auto& e = abierto(Para::VekCaptura);
    enlaces.AbrirEnlace(Para::VekMotor, 0, 0, {}, &motor);
    reloj.avanzar(10);
    EXPECT_EQ(motor.nuevo(), u"Abrir 0");
    e.CerrarEnlace(primeroMotor ? Para::VekMotor : Para::VekCaptura);
    reloj.avanzar(10);
    EXPECT_EQ(motor.nuevo(), QStringView(primeroMotor ? u"Cerrar 0" : u""));
    EXPECT_EQ(captura.nuevo(), QStringView(primeroMotor ? u"" : u"Cerrar 0"));
    EXPECT_EQ(e.AbiertoPara(), primeroMotor ? Para::VekCaptura : Para::VekMotor);
    cable().entra(vek(1, 995, "V"));
    EXPECT_EQ(captura.nuevo(), QStringView(primeroMotor ? u"Tx 1 V" : u""));
    e.CerrarEnlace(primeroMotor ? Para::VekCaptura : Para::VekMotor);
    reloj.avanzar(20);
    EXPECT_EQ((primeroMotor ? captura.nuevo() : motor.nuevo()), u"Cerrar 0");
    EXPECT_EQ(enlaces[0], nullptr);
  }
}

TEST_F(Enlace, ConOtroAccesoSeAbreDeNuevo) {
  cables.canales[0].Device = TipoAcceso::TcpIp;
  abierto(Para::VekMotor, 0, QStringLiteral("a:1"));
  EXPECT_EQ(enlaces.AbrirEnlace(Para::VekCaptura, 0, 0, QStringLiteral("b:1"), nullptr, &captura),
            0);
  reloj.avanzar(5);
  EXPECT_EQ(motor.nuevo(), u"Cerrar 20");  // no client is left waiting on a link that is gone
  EXPECT_EQ(captura.nuevo(), u"Abrir 0");
  EXPECT_EQ(fabrica.cables.size(), 2U);
  EXPECT_TRUE(fabrica.cables[0]->destruido);
}

TEST_F(Enlace, LosCrucesDentroDeLos10ms) {
  struct Caso {
    const char* nombre;
    std::function<void(comtvIP&)> hacer;  // while the engine is joining a capture
    QStringView motor, captura;
    Para quedaPara;
  };
  const std::vector<Caso> casos{
      {"joins and leaves", [](comtvIP& e) { e.CerrarEnlace(Para::VekMotor); }, u"Cerrar 0", u"",
       Para::VekCaptura},
      {"the other leaves", [](comtvIP& e) { e.CerrarEnlace(Para::VekCaptura); }, u"Abrir 0",
       u"Cerrar 0", Para::VekMotor},
      {"both leave",
       [](comtvIP& e) { e.CerrarEnlace(Para::VekMotor), e.CerrarEnlace(Para::VekCaptura); },
       u"Cerrar 0", u"Cerrar 0", Para::Nada},
      {"the line drops", [this](comtvIP&) { cable().cae(14); }, u"Abrir 15", u"Cerrar 20",
       Para::Nada},
  };
  for (const auto& caso : casos) {
    SCOPED_TRACE(caso.nombre);
    auto& e = abierto(Para::VekCaptura);
    enlaces.AbrirEnlace(Para::VekMotor, 0, 0, {}, &motor);
    reloj.avanzar(5);
    caso.hacer(e);
    reloj.avanzar(30);
    EXPECT_EQ(motor.nuevo(), caso.motor);
    EXPECT_EQ(captura.nuevo(), caso.captura);
    EXPECT_EQ((enlaces[0] ? enlaces[0]->AbiertoPara() : Para::Nada), caso.quedaPara);
    enlaces.abandonar(0, &motor, &captura);
  }
}

TEST_F(Enlace, ElSegundoLlegaMientrasElPrimeroAbre) {
  for (const int razon : {0, 1}) {
    fabrica.preparar = [=](MandoCable& c) { c.razonApertura = razon; };
    enlaces.AbrirEnlace(Para::VekCaptura, 0, 0, {}, nullptr, &captura);
    enlaces.AbrirEnlace(Para::VekMotor, 0, 0, {}, &motor);
    reloj.avanzar(20);
    EXPECT_EQ(motor.nuevo(), QStringView(razon ? u"Abrir 4" : u"Abrir 0"));
    EXPECT_EQ(captura.nuevo(), QStringView(razon ? u"Abrir 4" : u"Abrir 0"));
    enlaces.abandonar(0, &motor, &captura);
  }
}

TEST_F(Enlace, UnaCaidaLaOyenLosDos) {
  abierto(Para::VekCaptura);
  enlaces.AbrirEnlace(Para::VekMotor, 0, 0, {}, &motor);
  reloj.avanzar(10);
  motor.nuevo();
  cable().cae(14);
  EXPECT_EQ(motor.nuevo(), u"Cerrar 20");
  EXPECT_EQ(captura.nuevo(), u"Cerrar 20");
}

TEST_F(Enlace, LoQueUnoSueltaLoOyeElOtro) {
  const std::tuple<const enlace::ClienteEnlace*, const enlace::ClienteLinea*, QStringView,
                   QStringView>
      casos[] = {{&motor, nullptr, u"", u"Cerrar 20"},
                 {nullptr, &captura, u"Cerrar 20", u""},
                 {nullptr, nullptr, u"Cerrar 20", u"Cerrar 20"}};
  for (const auto& [deMotor, deCaptura, alMotor, aLaCaptura] : casos) {
    abierto(Para::VekCaptura);
    enlaces.AbrirEnlace(Para::VekMotor, 0, 0, {}, &motor);
    reloj.avanzar(10);
    motor.nuevo();
    enlaces.abandonar(0, deMotor, deCaptura);
    EXPECT_EQ(enlaces[0], nullptr);
    EXPECT_EQ(motor.nuevo(), alMotor);
    EXPECT_EQ(captura.nuevo(), aLaCaptura);
  }
}

TEST_F(Enlace, NadieCierraElEnlaceDeOtro) {
  auto& e = abierto(Para::VekCaptura);
  EXPECT_EQ(e.CerrarEnlace(Para::VekMotor), 15);
  reloj.avanzar(30);
  EXPECT_EQ(captura.nuevo(), u"");
  EXPECT_EQ(e.AbiertoPara(), Para::VekCaptura);
  EXPECT_EQ(e.CerrarEnlace(), 0);
  reloj.avanzar(30);
  EXPECT_EQ(captura.nuevo(), u"Cerrar 0");
}

// --- clients that act inside their events ---

TEST_F(Enlace, UnClientePuedeHacerDeTodoDentroDeUnEvento) {
  const std::vector<std::function<void()>> acciones{
      [this] { enlaces.abandonar(0, &motor, &captura); },
      [this] { enlaces[0]->CerrarEnlace(); },
      [this] { enlaces[0]->Enviar(0, 11, "OTRA"); },
      [this] {
        enlaces.abandonar(0, &motor, &captura);
        enlaces.AbrirEnlace(Para::VekMotor, 0, 0, {}, &motor);
      },
      [this] {  // a dialog with its own event loop
        enlaces.abandonar(0, &motor, &captura);
        reloj.avanzar(100);
      },
      [this] { enlaces.AbrirEnlace(Para::VekMotor, 0, 0, {}, &motor); },
  };
  const std::vector<QStringView> momentos{u"Abrir", u"Cerrar", u"EnvioVEK"};
  for (const auto& accion : acciones) {
    for (const QStringView momento : momentos) {
      int veces = 0;
      motor.alOir = [&](const QString& texto) {
        if (texto.startsWith(momento) && enlaces[0] && veces++ == 0) accion();
      };
      enlaces.AbrirEnlace(Para::VekMotor, 0, 0, {}, &motor);
      reloj.avanzar(50);
      if (enlaces[0]) enlaces[0]->Enviar(0, 10, "D");
      if (cable().oyente) cable().entra(ack + vek(5, 10, "SI") + ack);
      reloj.avanzar(5);
      if (enlaces[0] && cable().oyente) cable().cae(14);
      reloj.avanzar(5000);
      motor.alOir = nullptr;
      enlaces.abandonar(0, &motor, &captura);
      reloj.avanzar(50);
      motor.nuevo();
    }
  }
  for (const auto& c : fabrica.cables) EXPECT_TRUE(c->destruido);
}

TEST_F(Enlace, AlReabrirDentroDelCierreHayUnEnlaceNuevo) {
  comtvIP* const viejo = &abierto(Para::VekMotor);
  motor.alOir = [&](const QString& texto) {
    if (texto.startsWith(u"Cerrar")) enlaces.AbrirEnlace(Para::VekMotor, 0, 0, {}, &motor);
  };
  cable().cae(14);
  EXPECT_NE(enlaces[0], nullptr);
  EXPECT_NE(enlaces[0], viejo);
  reloj.avanzar(20);
  EXPECT_EQ(motor.nuevo(), u"Cerrar 20; Abrir 0");
}

TEST_F(Enlace, LoQueEntraEnReposoTieneUnLimite) {
  abierto(Para::VekMotor);
  for (int i = 0; i < 1000; ++i) cable().entra(QByteArray(1000, 'x'));
  enlaces[0]->Enviar(0, 10, "D");
  cable().entra(ack + vek(5, 10, "SI"));
  reloj.avanzar(tiempos.TimeACK);
  cable().entra(ack + vek(5, 10, "SI"));
  EXPECT_EQ(motor.nuevo(), u"EnvioVEK 0 1 10 SI");
}

}  // namespace
