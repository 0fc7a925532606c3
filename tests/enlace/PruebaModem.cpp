// The modem's dialogue: its language as tables, and a scripted modem at the far end of a
// pseudo-terminal.
#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QThread>

#include "comm/cables/AjustesCables.h"
#include "comm/cables/FabricaReal.h"
#include "comm/cables/Hayes.h"
#include "comm/enlace/AjustesEnlace.h"
#include "enlace/BancoEnlaces.h"

using namespace tarvo;
using namespace tarvo::pruebas;
using namespace tarvo::enlace;

namespace {

TEST(Hayes, Guion) {
  EXPECT_EQ(partirGuion(QStringLiteral("I||I|0[Cr]|A||B|")),
            (std::vector<PasoGuion>{{"I", false}, {"I", true}, {"A", false}, {"B", false}}));
  EXPECT_EQ(partirGuion(QStringLiteral("A|")), (std::vector<PasoGuion>{{"A", false}}));
  EXPECT_TRUE(partirGuion({}).empty());
}

TEST(Hayes, Respuestas) {
  using enum RespuestaModem;
  const std::vector<std::pair<QByteArray, RespuestaModem>> casos{{"OK", Bien},
                                                                 {"0", Bien},
                                                                 {"CONNECT 9600", Conectado},
                                                                 {"1", Conectado},
                                                                 {"5", Conectado},
                                                                 {"12", Conectado},
                                                                 {"RING", Ninguna},
                                                                 {"2", Ninguna},
                                                                 {"NO CARRIER", SinPortadora},
                                                                 {"3", SinPortadora},
                                                                 {"ERROR", Error},
                                                                 {"4", Error},
                                                                 {"NO DIALTONE", SinTono},
                                                                 {"6", SinTono},
                                                                 {"BUSY", Comunica},
                                                                 {"7", Comunica},
                                                                 {"NO ANSWER", NoContesta},
                                                                 {"8", NoContesta},
                                                                 {"ATDT912345678", Ninguna},
                                                                 {"", Ninguna},
                                                                 {"912345678", Ninguna},
                                                                 {"-1", Ninguna}};
  for (const auto& [linea, respuesta] : casos)
    EXPECT_EQ(interpretar(linea), respuesta) << linea.constData();
}

// Answers each line by the first rule with a matching beginning; a rule may be used up.
struct ModemPrueba {
  int maestro = -1, esclavo = -1;
  QString ruta;
  QByteArray entrada, oido;
  std::vector<std::pair<QByteArray, QByteArray>> reglas;
  std::unique_ptr<QSocketNotifier> aviso;

  ModemPrueba() {
    char nombre[128] = {};
    EXPECT_EQ(openpty(&maestro, &esclavo, nombre, nullptr, nullptr), 0);
    termios t{};
    tcgetattr(esclavo, &t);
    cfmakeraw(&t);
    tcsetattr(esclavo, TCSANOW, &t);
    ruta = QString::fromLatin1(nombre);
    aviso = std::make_unique<QSocketNotifier>(maestro, QSocketNotifier::Read);
    QObject::connect(aviso.get(), &QSocketNotifier::activated, aviso.get(), [this] { leer(); });
  }
  ~ModemPrueba() {
    aviso.reset();
    close(maestro);
    close(esclavo);
  }
  void di(const QByteArray& bytes) const {
    EXPECT_EQ(write(maestro, bytes.data(), static_cast<size_t>(bytes.size())), bytes.size());
  }
  void leer() {
    char trozo[512];
    const auto n = read(maestro, trozo, sizeof trozo);
    if (n <= 0) return;
    oido.append(trozo, n);
    entrada.append(trozo, n);
    for (qsizetype fin; (fin = entrada.indexOf('\r')) >= 0;) {
      const QByteArray linea = entrada.left(fin);
      entrada.remove(0, fin + 1);
      responder(linea);
    }
  }
  void responder(const QByteArray& linea) {
    for (auto it = reglas.begin(); it != reglas.end(); ++it) {
      if (!linea.endsWith(it->first) && !linea.startsWith(it->first)) continue;
      const QByteArray respuesta = it->second;
      if (it->first.startsWith("ATDT") && reglas.back() != *it) reglas.erase(it);
      return di(respuesta);
    }
  }
};

struct Modem : testing::Test {
  int argc = 1;
  char nombre[8] = "modem";
  char* argv[2] = {nombre, nullptr};
  QCoreApplication app{argc, argv};
  RelojVirtual reloj{Fecha::deDias(46000.5)};
  Ajustes ajustes{QStringLiteral("/tienda"),
                  Idioma::Espanol,
                  {enlace::ajustesCables(), enlace::ajustesEnlace()}};
  AjustesCables& cables = ajustes.de<AjustesCables>();
  FabricaReal fabrica{reloj, ajustes};
  Azar azar{3};
  Enlaces enlaces{reloj, ajustes, fabrica, azar};
  ClienteAnota motor;
  ModemPrueba modem;

  void SetUp() override {
    auto& canal = cables.canales[0];
    canal.Device = TipoAcceso::Modem;
    canal.IniMdm0 = QStringLiteral("ATE0V0");
    canal.IniMdmX = {QStringLiteral("AT&D2")};
    canal.Espera = 1500;  // ms, since it is above 600
    canal.Intentos = 2;
    canal.ATHang = 2000;
    cables.RutaPuerto[1] = modem.ruta;
  }
  // The bytes take real time through the pseudo-terminal; meanwhile the clock runs ten times as
  // fast.
  bool hasta(const std::function<bool()>& cierto, int ms) {
    for (int pasado = 0; !cierto() && pasado < ms; pasado += 10) {
      QThread::msleep(1);
      QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
      reloj.avanzar(10);
    }
    return cierto();
  }
  // All events up to one with this beginning.
  QString oyeHasta(const QString& principio) {
    hasta([&] { return !motor.oido.isEmpty() && motor.oido.back().startsWith(principio); }, 20000);
    return motor.nuevo();
  }
  QString llama() {
    EXPECT_EQ(enlaces.AbrirEnlace(Para::VekMotor, 0, 0, QStringLiteral("912345678"), &motor), 0);
    return oyeHasta(QStringLiteral("Abrir"));
  }
};

TEST_F(Modem, LlamaHablaPierdeLaPortadoraYCuelga) {
  modem.reglas = {
      {"ATE0V0", "0\r"}, {"AT&D2", "0\r"}, {"ATDT912345678", "7\r"}, {"ATDT912345678", "1\r"}};
  EXPECT_EQ(llama(), u"CD 1; Abrir 0");
  EXPECT_EQ(modem.oido, "ATE0V0\rATE0V0\rAT&D2\rATDT912345678\rATDT912345678\r");
  EXPECT_TRUE(enlaces[0]->Portadora());
  enlaces[0]->Enviar(0, 10, "HOLA");
  EXPECT_TRUE(hasta([&] { return modem.oido.endsWith(tramas::kETX); }, 3000));
  modem.di(tramas::kACK + vek(1, 10, "SI"));
  EXPECT_EQ(oyeHasta(QStringLiteral("Envio")), u"EnvioVEK 0 1 10 SI");
  modem.di("\r\nNO CARRIER\r\n");
  EXPECT_EQ(oyeHasta(QStringLiteral("CD")), u"CD 0");
  EXPECT_FALSE(enlaces[0]->Portadora());
  enlaces[0]->CerrarEnlace();
  EXPECT_EQ(oyeHasta(QStringLiteral("Cerrar")), u"Cerrar 0");
}

TEST_F(Modem, CuelgaConEscapeYATH) {
  modem.reglas = {{"ATE0V0", "\r\nOK\r\n"},
                  {"AT&D2", "\r\nERROR\r\n"},
                  {"ATH", "\r\nOK\r\n"},
                  {"ATDT", "\r\nCONNECT 9600\r\n"}};
  modem.reglas.insert(modem.reglas.begin(), {"+++ATH", "\r\nOK\r\n"});
  EXPECT_EQ(llama(), u"CD 1; Abrir 0");
  enlaces[0]->CerrarEnlace();
  EXPECT_EQ(oyeHasta(QStringLiteral("Cerrar")), u"Cerrar 0");
  EXPECT_TRUE(modem.oido.endsWith("+++ATH\r"));
}

TEST_F(Modem, QuienNoCuelgaSeDiceConError20) {
  modem.reglas = {{"ATE0V0", "0\r"}, {"AT&D2", "0\r"}, {"ATDT", "1\r"}};
  EXPECT_EQ(llama(), u"CD 1; Abrir 0");
  enlaces[0]->CerrarEnlace();
  EXPECT_EQ(oyeHasta(QStringLiteral("Cerrar")), u"Cerrar 20");
}

TEST_F(Modem, FallosDeApertura) {
  struct Caso {
    const char* nombre;
    std::vector<std::pair<QByteArray, QByteArray>> reglas;
    QStringView oye;
    int llamadas;
  };
  const std::vector<Caso> casos{
      {"mute", {}, u"Abrir 10", 0},
      {"refuses the first string", {{"ATE0V0", "4\r"}}, u"Abrir 10", 0},
      {"busy twice", {{"AT&D2", "0\r"}, {"ATE0V0", "0\r"}, {"ATDT", "BUSY\r"}}, u"Abrir 11", 2},
      {"dials for ever", {{"AT&D2", "0\r"}, {"ATE0V0", "0\r"}}, u"Abrir 11", 2},
  };
  for (const auto& caso : casos) {
    SCOPED_TRACE(caso.nombre);
    modem.reglas = caso.reglas;
    modem.oido.clear();
    EXPECT_EQ(llama(), caso.oye);
    EXPECT_EQ(modem.oido.count("ATDT912345678\r"), caso.llamadas);
    hasta([] { return false; }, 500);
  }
}

TEST_F(Modem, AlCerrarMientrasMarcaSeCallaYDa13) {
  modem.reglas = {{"ATE0V0", "0\r"}, {"AT&D2", "0\r"}};
  cables.canales[0].Espera = 60;
  enlaces.AbrirEnlace(Para::VekMotor, 0, 0, QStringLiteral("912345678"), &motor);
  EXPECT_TRUE(hasta([&] { return modem.oido.endsWith("ATDT912345678\r"); }, 5000));
  enlaces[0]->CerrarEnlace();
  EXPECT_EQ(oyeHasta(QStringLiteral("Abrir")), u"Abrir 13");
}

}  // namespace
