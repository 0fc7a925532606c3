// The sentence about each sort of line, with the simulated machines and with machines that answer
// nonsense at the far end.
#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QRegularExpression>
#include <QSocketNotifier>

#include "comm/cables/AjustesCables.h"
#include "comm/cables/FabricaReal.h"
#include "comm/exploracion/Accesos.h"
#include "comm/exploracion/Exploracion.h"
#include "comm/exploracion/Resumen.h"
#include "comm/tramas/Trama.h"
#include "core/ajustes/Ajustes.h"
#include "enlace/CableMemoria.h"
#include "simulador/Cable.h"
#include "simulador/Modem.h"
#include "textos/TextosDePrueba.h"

namespace tarvo::exploracion {
namespace {

using namespace Qt::StringLiterals;
using pruebas::MandoCable;

constexpr int kNodoPropio = 33;
const QByteArray kAck(1, tramas::kACK);

// The far end of a line: given the bytes that arrive, the bytes that it answers at once.
using Contesta = std::function<QByteArray(const QByteArray&)>;

struct Mundo {
  RelojVirtual reloj{Fecha::deDias(46000.5)};
  Azar azar{7};
  pruebas::FabricaMemoria fabrica{reloj};
  Exploracion e{reloj, azar, fabrica, kNodoPropio};
  std::vector<std::unique_ptr<simulador::Maquina>> maquinas;
  simulador::Cable cable;
  std::unique_ptr<simulador::Tubo> tubo;
  std::unique_ptr<simulador::Modem> modem;

  void maquina(simulador::Tipo tipo, int direccion, const std::vector<int>& balanzas) {
    simulador::OpcionesMaquina opciones;
    opciones.tipo = tipo;
    opciones.estacion = opciones.direccion = direccion;
    opciones.balanzas = balanzas;
    maquinas.push_back(simulador::crearMaquina(opciones, reloj));
    cable.poner(*maquinas.back());
  }
  void conectar(MandoCable& m) {
    tubo = std::make_unique<simulador::Tubo>(cable, reloj);
    tubo->abrir([&m](const QByteArray& bytes) { m.entra(bytes); }, [](bool) {});
    m.alEnviar = [this](const QByteArray& bytes) { tubo->enviar(bytes); };
  }
  void conectarModem(MandoCable& m) {
    modem = std::make_unique<simulador::Modem>(cable, reloj, simulador::OpcionesModem{},
                                               [&m](const QByteArray& bytes) { m.entra(bytes); });
    m.alEnviar = [this](const QByteArray& bytes) { modem->recibir(bytes); };
  }
  // How long it took, in ms.
  qint64 explorar(std::vector<Acceso> accesos) {
    bool acabada = false;
    e.alAcabar = [&] { acabada = true; };
    const qint64 antes = reloj.monotono();
    e.empezar(std::move(accesos));
    while (!acabada && reloj.siguiente()) {
    }
    EXPECT_TRUE(acabada);
    return reloj.monotono() - antes;
  }
};

std::vector<Acceso> leidos(const QStringList& textos) {
  return leerAccesos(textos).value_or(std::vector<Acceso>());
}

// "4: 1=0101 3=1": the result, and each group; for a line with nothing its cause.
QString dicho(const Hallazgo& h) {
  QString s = QString::number(static_cast<int>(h.resultado));
  if (h.resultado == ResultadoCanal::Cable) s += u'/' + QString::number(static_cast<int>(h.motivo));
  for (const GrupoHallado& g : h.grupos) {
    s += u' ' + QString::number(g.estacion) + u'=';
    for (const bool hay : g.balanzas) s += hay ? u'1' : u'0';
  }
  return s;
}

// The modem's strings, "AT", the questions, acknowledgements.
bool permitido(const QByteArray& bytes) {
  static const QRegularExpression regla(
      u"^(?:AT&FE0V0Q0Y1L3\\r|AT\\r|[\\x06\\x15]|\\x02\\d\\d[V1-9A-K]00570\\d\\d\\x03|"
      u"\\x0221[01][0-9A-F][0-9A-F]{2}(?:48|06)\\x03[0-9A-F]{2}\\r)$"_s);
  return regla.match(QString::fromLatin1(bytes)).hasMatch();
}

QByteArray respuesta(int estacion, int codigo, const QByteArray& datos) {
  return kAck + tramas::construirVEK(5, tramas::cuerpoVEK(0, codigo, datos), estacion);
}

Contesta siempre(const QByteArray& bytes) {
  return [bytes](const QByteArray&) { return bytes; };
}

// To the question for one station, under the sign of another.
Contesta comoEstacion(char preguntada, const QByteArray& bytes) {
  return [=](const QByteArray& b) { return b.mid(3, 1) == QByteArray(1, preguntada) ? bytes : ""; };
}

Contesta modemDe(const QByteArray& cadena, const QByteArray& at) {
  return [=](const QByteArray& b) {
    return b == "AT\r" ? at : b.startsWith("AT") ? cadena : QByteArray();
  };
}

QByteArray basura(const QByteArray&) {
  static Azar azar(5);
  QByteArray b(60, '\0');
  for (char& c : b) c = static_cast<char>(azar.entero(0, 127));
  return b + tramas::kETX + '\r';
}

QByteArray nodoQueSeCalla(const QByteArray& b) {
  return b.startsWith(
             "\x02"
             "2104")
             ? tramas::construirNODAL({4, kNodoPropio, 1, tramas::kNodalAck, {}})
             : QByteArray();
}

TEST(Exploracion, DiceLoQueHayEnCadaLinea) {
  const auto sordo = [](int razon) {
    return [=](Mundo&, MandoCable& m) { m.razonApertura = razon; };
  };
  const auto con = [](const Contesta& contesta) {
    return [=](Mundo&, MandoCable& m) {
      m.alEnviar = [&m, contesta](const QByteArray& b) { m.entra(contesta(b)); };
    };
  };
  const auto balanzas = [](Mundo& w, MandoCable& m) {
    w.maquina(simulador::Tipo::Balanzas, 1, {0, 2});
    w.maquina(simulador::Tipo::Balanzas, 3, {15});
    w.conectar(m);
  };
  const auto nodos = [](Mundo& w, MandoCable& m) {
    for (const int nodo : {2, 20}) w.maquina(simulador::Tipo::Ebony, nodo, {1});
    w.conectar(m);
  };
  const struct {
    const char* nombre;
    QString acceso;
    std::function<void(Mundo&, MandoCable&)> linea;
    QString dice;
    int ms;  // the sum of its waits
  } casos[] = {
      {"no port", u"/p"_s, sordo(enlace::kPuertoOcupado), u"0"_s, 0},
      {"no CTS", u"/p"_s, sordo(enlace::kSinCtsDsr), u"1"_s, 0},
      {"no host", u"h:1"_s, sordo(enlace::kSinHost), u"0"_s, 0},
      {"silence", u"/p"_s, con(siempre({})), u"2/0"_s, 22000},
      {"silence, TCP", u"h:1"_s, con(siempre({})), u"2/0"_s, 20500},
      {"a modem", u"/p"_s, [](Mundo& w, MandoCable& m) { w.conectarModem(m); }, u"3"_s, 1000},
      {"a modem that stops", u"/p"_s, con(modemDe("0\r", {})), u"2/4"_s, 1500},
      {"another modem", u"/p"_s, con(modemDe("4\r", {})), u"2/3"_s, 1000},
      {"a modem that refuses AT", u"/p"_s, con(modemDe("0\r", "4\r")), u"2/3"_s, 1000},
      {"stations 1 and 3", u"/p"_s, balanzas, u"4 1=1010000000000000 3=0000000000000001"_s, 11000},
      {"stations, TCP", u"h:1"_s, balanzas, u"4 1=1010000000000000 3=0000000000000001"_s, 9500},
      {"stations 0 and 20", u"h:1"_s, con([](const QByteArray& b) {
         return b.mid(3, 1) == "V"   ? respuesta(0, 570, "1")
                : b.mid(3, 1) == "K" ? respuesta(20, 570, "01x")
                                     : "";
       }),
       u"4 0=1 20=010"_s, 9500},
      {"another's number", u"/p"_s, con(comoEstacion('2', respuesta(5, 570, "1"))), u"2/1"_s,
       22000},
      {"one number to everything", u"h:1"_s, con(siempre(respuesta(5, 570, "1"))), u"4 5=1"_s,
       10000},
      {"another code", u"/p"_s, con(comoEstacion('2', respuesta(2, 571, "1"))), u"2/1"_s, 22000},
      {"nodes 2 and 20", u"/p"_s, nodos, u"5 2=0100000000000000 20=0100000000000000"_s, 21500},
      {"a node that stops", u"/p"_s, con(nodoQueSeCalla), u"2/5"_s, 14000},
      {"noise", u"/p"_s, con(basura), u"2/1"_s, 1000},
      {"noise, TCP", u"h:1"_s, con(basura), u"2/1"_s, 20500},
      {"an echo", u"/p"_s, con([](const QByteArray& b) { return b; }), u"2/2"_s, 1000},
      {"an echo, TCP", u"h:1"_s, con([](const QByteArray& b) { return b; }), u"2/2"_s, 20500},
      {"nothing but zeros", u"h:1"_s, con(siempre("0\r")), u"2/1"_s, 20500},
      {"a line that is lost", u"h:1"_s,
       [](Mundo&, MandoCable& m) { m.alEnviar = [&m](auto&) { m.cae(enlace::kCaidaTcp); }; },
       u"2/6"_s, 0},
  };
  for (const auto& c : casos) {
    Mundo w;
    w.fabrica.preparar = [&](MandoCable& m) { c.linea(w, m); };
    const qint64 ms = w.explorar(leidos({c.acceso}));
    ASSERT_EQ(w.e.hallazgos().size(), 1U) << c.nombre;
    const Hallazgo& h = w.e.hallazgos().front();
    EXPECT_EQ(dicho(h).toStdString(), c.dice.toStdString()) << c.nombre;
    EXPECT_LE(std::abs(ms - c.ms), 20 + c.ms / 20) << c.nombre << ": " << ms;
    for (const QByteArray& bytes : w.fabrica.cable().enviados)
      EXPECT_TRUE(permitido(bytes)) << c.nombre << ": " << bytes.toPercentEncoding().constData();
    const QString frase = exploracion::frase(h, textosDePrueba());
    EXPECT_TRUE(frase.startsWith(c.acceso + u": "_s) && !frase.contains(u'%'))
        << frase.toStdString();
  }
}

TEST(Exploracion, VaDeUnAccesoAOtroHastaQueSePara) {
  Mundo w;
  const auto texto = leerTexto(u" h:1, h:2;x\n/dev/a\t10.0.0.1-2:5\r\nh:0 "_s);
  EXPECT_EQ(texto.accesos.size(), 5U);
  EXPECT_EQ(texto.malos, (QStringList{u"x"_s, u"h:0"_s}));
  EXPECT_TRUE(leerTexto(u"10.0.0.0-255:1 h:1"_s).demasiados);
  Ajustes ajustes(u"/tienda"_s, Idioma::Espanol, {enlace::ajustesCables()});
  EXPECT_LE(std::abs(w.explorar(accesosDe(ajustes)) - 4 * 22000), 4 * 22000 / 20);
  EXPECT_EQ(w.e.hallazgos().size(), 4U);
  EXPECT_EQ(w.e.hallazgos()[1].acceso.nombre, u"/dev/ttyS1"_s);
  EXPECT_EQ(w.fabrica.cables.size(), 4U);
  // One that is stopped while it opens, talks, or never ends its opening.
  for (const int ms : {0, 400, 90000}) {
    w.fabrica.preparar = [&](MandoCable& m) { m.abreSolo = ms == 400; };
    bool acabada = false;
    w.e.empezar(leidos({u"h:1-2"_s}));
    w.e.alAcabar = [&] { acabada = true; };
    w.reloj.avanzar(ms);
    w.e.parar();
    w.reloj.avanzar(15000);
    EXPECT_TRUE(acabada && w.fabrica.cable().destruido) << ms;
    EXPECT_EQ(w.e.hallazgos().size(), ms > 60000 ? 1U : 0U) << ms;
  }
}

// A device by its name, on the real clock.
TEST(Exploracion, EncuentraUnModemEnUnPseudoterminal) {
  int maestro = -1, esclavo = -1;
  char ruta[128] = {};
  ASSERT_EQ(openpty(&maestro, &esclavo, ruta, nullptr, nullptr), 0);
  termios t{};
  tcgetattr(esclavo, &t);
  cfmakeraw(&t);
  tcsetattr(esclavo, TCSANOW, &t);
  int argc = 1;
  char* argv[] = {ruta, nullptr};
  QCoreApplication app(argc, argv);
  QSocketNotifier oido(maestro, QSocketNotifier::Read);
  QObject::connect(&oido, &QSocketNotifier::activated, &oido, [maestro] {
    char orden[256];
    const auto n = read(maestro, orden, sizeof orden);
    const bool entera = n > 0 && orden[n - 1] == '\r';
    EXPECT_TRUE(!entera || write(maestro, "0\r", 2) == 2);
  });
  RelojReal reloj;
  Azar azar(1);
  Ajustes ajustes(u"/tienda"_s, Idioma::Espanol, {enlace::ajustesCables()});
  enlace::FabricaReal fabrica(reloj, ajustes);
  Exploracion e(reloj, azar, fabrica, 0);
  e.alAcabar = [] { QCoreApplication::exit(); };
  e.empezar(leidos({QString::fromLatin1(ruta)}));
  QCoreApplication::exec();
  EXPECT_EQ(dicho(e.hallazgos().at(0)), u"3");
  close(maestro);
  close(esclavo);
}

TEST(Exploracion, LeeAccesosYReconoceLosDeUnCanal) {
  const std::pair<QStringList, int> casos[] = {{{u"/dev/x"_s, u"/dev/x"_s, u"h:1"_s}, 2},
                                               {{u"h:10-12"_s, u"H:11"_s}, 3},
                                               {{u"h:1-256"_s}, 256},
                                               {{u"h:1-256"_s, u"/dev/x"_s}, -1},
                                               {{u"h"_s}, -1},
                                               {{u"h:0"_s}, -1},
                                               {{u"h:65536"_s}, -1},
                                               {{u"h:5-4"_s}, -1},
                                               {{u"h:1-x"_s}, -1},
                                               {{u":1"_s}, -1},
                                               {{u"::1:80"_s}, -1},
                                               {{u""_s}, -1},
                                               {{u"10.0.0.1-9:7"_s, u"10.0.0.3:7"_s}, 9},
                                               {{u"mi-balanza:3000"_s}, 1},
                                               {{u"10.0.0.9-1:7"_s}, -1},
                                               {{u"10.0.0.1-256:7"_s}, -1},
                                               {{u"10.0.0.1-250:1-2"_s}, -1}};
  for (const auto& [textos, cuantos] : casos) {
    const auto hay = leerAccesos(textos);
    EXPECT_EQ(hay ? static_cast<int>(hay->size()) : -1, cuantos) << textos.join(u' ').toStdString();
  }
  Ajustes ajustes(u"/tienda"_s, Idioma::Espanol, {enlace::ajustesCables()});
  auto& cables = ajustes.de<enlace::AjustesCables>();
  cables.RutaPuerto[3] = u"/dev/mio"_s;
  cables.canales[0].Device = TipoAcceso::TcpIp;
  EXPECT_EQ(accesosDe(ajustes).size(), 3U);
  EXPECT_EQ(conSusCanales(leidos({u"/dev/mio"_s}), ajustes).front().canal, 3);
  EXPECT_EQ(conSusCanales(leidos({u"/dev/otro"_s}), ajustes).front().canal, 0);
}

TEST(Exploracion, ResumeLoHallado) {
  const struct {
    Cuentas cuentas;
    QString resumen, consecuencia;
  } casos[] = {
      {{.canales = 0, .modems = 0, .grupos = 0},
       u"El asistente no ha detectado ningún canal de comunicación disponible en su equipo."_s,
       u"En estas condiciones no es posible configurar las comunicaciones de su aplicación TARVO.  "_s},
      {{.canales = 1, .modems = 0, .grupos = 0},
       u"El asistente ha detectado 1 canal disponible en su equipo, pero no ha podido detectar "
       u"ningún grupo de balanzas conectado ni modem para comunicación remota."_s,
       u"En estas condiciones no es posible configurar las comunicaciones de su aplicación TARVO.  "
       u"Puede usar la opción \"Avanzado\" para cambiar los parámetros de comunicación, e "
       u"intentarlo de nuevo."_s},
      {{.canales = 2, .modems = 1, .grupos = 0},
       u"El asistente ha detectado 2 canales disponibles en su equipo, y modem para comunicación "
       u"remota. No se ha detectado ningún grupo de balanzas conectado."_s,
       u"Se procederá a configurar los canales de comunicación.  Los grupos de balanzas que se "
       u"comunican por teléfono, serán creados aparte en otras sesiones de este asistente."_s},
      {{.canales = 3, .modems = 1, .grupos = 2},
       u"El asistente ha detectado 3 canales disponibles en su equipo, modem para comunicación "
       u"remota y 2 grupos de balanzas conectados directamente."_s,
       u"Se procederá a configurar los canales de comunicación.  Se crearán 2 grupos de balanzas, "
       u"según los resultados de la exploración.  Los grupos de balanzas que se comunican por "
       u"teléfono, serán creados aparte en otras sesiones de este asistente."_s},
      {{.canales = 1, .modems = 0, .grupos = 1},
       u"El asistente ha detectado 1 canal disponible en su equipo, y 1 grupo de balanzas "
       u"conectado directamente."_s,
       u"Se procederá a configurar los canales de comunicación.  Se creará 1 grupo de balanzas, "
       u"según los resultados de la exploración.  "_s},
      {{.red = 2, .contestan = 2, .grupos = 2, .yaEstan = 1},
       u"El asistente ha detectado 2 accesos de red (contestan 2), y 2 grupos de balanzas "
       u"conectados "
       u"directamente."_s,
       u"Se procederá a configurar los canales de comunicación.  Se creará 1 grupo de balanzas, "
       u"según los resultados de la exploración.  Las balanzas de 1 acceso ya son de un grupo y "
       u"se quedan en él.  "_s}};
  for (const auto& c : casos) {
    EXPECT_EQ(resumen(c.cuentas, textosDePrueba()).toStdString(), c.resumen.toStdString());
    EXPECT_EQ(consecuencia(c.cuentas, textosDePrueba()).toStdString(),
              c.consecuencia.toStdString());
  }
  const Hallazgo hay[] = {{.resultado = ResultadoCanal::SinPuerto},
                          {.resultado = ResultadoCanal::SinCts},
                          {.resultado = ResultadoCanal::Modem},
                          {.resultado = ResultadoCanal::Nodal, .grupos = {{1, {}}, {2, {}}}}};
  const Cuentas c = contar(hay);
  EXPECT_EQ(c.canales * 100 + c.modems * 10 + c.grupos, 312);
}

}  // namespace
}  // namespace tarvo::exploracion
