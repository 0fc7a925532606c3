// The real wires against real sockets and pseudo-terminals, on the event loop.
#include <sys/socket.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QProcess>
#include <QSerialPort>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QThread>

#include "comm/cables/AjustesCables.h"
#include "comm/cables/CableTCP.h"
#include "comm/cables/FabricaReal.h"
#include "comm/enlace/AjustesEnlace.h"
#include "enlace/BancoEnlaces.h"

using namespace tarvo;
using namespace tarvo::pruebas;
using namespace tarvo::enlace;

namespace {

struct Cables : testing::Test {
  int argc = 1;
  char nombre[8] = "cables";
  char* argv[2] = {nombre, nullptr};
  QCoreApplication app{argc, argv};
  QTemporaryDir carpeta;
  RelojReal reloj;
  Ajustes ajustes{
      carpeta.path(), Idioma::Espanol, {enlace::ajustesCables(), enlace::ajustesEnlace()}};
  AjustesCables& cables = ajustes.de<AjustesCables>();
  FabricaReal fabrica{reloj, ajustes};
  Azar azar{3};
  Enlaces enlaces{reloj, ajustes, fabrica, azar};
  ClienteAnota motor;

  bool hasta(const std::function<bool()>& cierto, int ms = 8000) {
    QElapsedTimer desde;
    for (desde.start(); !cierto() && desde.elapsed() < ms;)
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20),
          QThread::msleep(1);
    return cierto();
  }
  QString oye(int ms = 8000) {
    hasta([this] { return !motor.oido.isEmpty(); }, ms);
    return motor.nuevo();
  }
  QString abre(int canal, const QString& acceso = {}) {
    const int error = enlaces.AbrirEnlace(Para::VekMotor, canal, 0, acceso, &motor);
    return error ? QStringLiteral("error %1").arg(error) : oye();
  }
  QString cierra(int canal) {
    enlaces[canal]->CerrarEnlace();
    return oye(30000);
  }
  // CONECTORES.INI, one line for each name.
  void conectores(const QByteArray& texto) {
    QFile f(carpeta.filePath(QStringLiteral("CONECTORES.INI")));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(texto);
  }
};

// A machine: acknowledges each frame and answers it with code 10 and the data received.
void responder(QIODevice& linea) {
  auto buffer = std::make_shared<QByteArray>();
  auto secuencia = std::make_shared<int>(0);
  QObject::connect(&linea, &QIODevice::readyRead, &linea, [&linea, buffer, secuencia] {
    *buffer += linea.readAll();
    while (buffer->startsWith(tramas::kACK)) buffer->remove(0, 1);
    if (const auto trama = tramas::leerVEK(*buffer, false).trama)
      linea.write(tramas::kACK + vek(++*secuencia % 100, trama->codigo, trama->datos));
  });
}

struct MaquinaTCP {
  QTcpServer servidor;
  QTcpSocket* socket = nullptr;
  MaquinaTCP() {
    servidor.listen(QHostAddress::LocalHost);
    QObject::connect(&servidor, &QTcpServer::newConnection, &servidor, [this] {
      socket = servidor.nextPendingConnection();
      responder(*socket);
    });
  }
  QString acceso() const { return QStringLiteral("127.0.0.1:%1").arg(servidor.serverPort()); }
};

TEST_F(Cables, TCPAbreEnviaYCierra) {
  MaquinaTCP maquina;
  cables.canales[0].Device = TipoAcceso::TcpIp;
  EXPECT_EQ(abre(0, maquina.acceso()), u"Abrir 0");
  enlaces[0]->Enviar(0, 10, "HOLA");
  EXPECT_EQ(oye(), u"EnvioVEK 0 1 10 HOLA");
  EXPECT_EQ(cierra(0), u"Cerrar 0");
  EXPECT_EQ(abre(0, maquina.acceso()), u"Abrir 0");
  maquina.socket->disconnectFromHost();
  EXPECT_EQ(oye(), u"Cerrar 20");
}

// A machine may take one connection at a time: a closing is over once the machine has closed as
// well, or has had its time.
TEST_F(Cables, TCPCierraCuandoLoHaceElOtroExtremo) {
  struct Oido final : LinkSocket::Oyente {
    void finApertura(int razon) override { abierto = razon == kBien; }
    void cierre(int razon) override { cerrado = razon == kBien; }
    void recepcion(QByteArray&) override {}
    void linea(int) override {}
    bool abierto = false, cerrado = false;
  };
  QTcpServer servidor;
  ASSERT_TRUE(servidor.listen(QHostAddress::LocalHost));
  servidor.pauseAccepting();
  for (const bool contesta : {true, false}) {
    RelojVirtual quieto{Fecha::de(QDate(2026, 5, 18))};
    Oido oido;
    CableTCP cable(quieto, std::make_shared<Ocupados>(), QStringLiteral("127.0.0.1"),
                   servidor.serverPort());
    cable.abrir(oido);
    ASSERT_TRUE(hasta([&] { return oido.abierto; }));
    const int suyo = ::accept(static_cast<int>(servidor.socketDescriptor()), nullptr, nullptr);
    cable.cerrar();
    for (int n = 0; n < 20; ++n) QCoreApplication::processEvents();
    EXPECT_FALSE(oido.cerrado);
    if (!contesta) quieto.avanzar(2000);
    if (contesta) ::close(suyo);
    EXPECT_TRUE(hasta([&] { return oido.cerrado; }));
    if (!contesta) ::close(suyo);
  }
}

TEST_F(Cables, TCPDiceQueFalla) {
  QTcpServer ocupa;
  ocupa.listen(QHostAddress::LocalHost);
  const int puerto = ocupa.serverPort();
  ocupa.close();
  cables.canales[0].Device = cables.canales[1].Device = TipoAcceso::TcpIp;
  EXPECT_EQ(abre(0, QStringLiteral("127.0.0.1:%1").arg(puerto)), u"Abrir 23");
  EXPECT_EQ(abre(0, QStringLiteral("nadie.invalid:9100")), u"Abrir 26");
  EXPECT_EQ(abre(0, QStringLiteral(":9100")), u"Abrir 26");
  EXPECT_EQ(abre(0, QStringLiteral("127.0.0.1")), u"Abrir 23");
  MaquinaTCP maquina;
  EXPECT_EQ(abre(0, maquina.acceso()), u"Abrir 0");
  EXPECT_EQ(abre(1, maquina.acceso()), u"Abrir 27");  // one access serves one channel at a time
  EXPECT_EQ(cierra(0), u"Cerrar 0");
  EXPECT_EQ(abre(1, maquina.acceso()), u"Abrir 0");
}

TEST_F(Cables, CienConectoresALaVez) {
  constexpr int kCuantos = 100;
  std::vector<std::unique_ptr<MaquinaTCP>> maquinas;
  QByteArray texto;
  for (int i = 0; i < kCuantos; ++i) {
    maquinas.push_back(std::make_unique<MaquinaTCP>());
    texto += QStringLiteral("B%1= tcp:%2\r\n").arg(i).arg(maquinas.back()->acceso()).toLatin1();
  }
  conectores(texto);
  for (int i = 0; i < kCuantos; ++i)
    EXPECT_EQ(enlaces.AbrirEnlace(Para::VekMotor, 4 + i, 0, QStringLiteral("B%1").arg(i), &motor),
              0);
  EXPECT_TRUE(hasta([&] { return motor.oido.size() >= kCuantos; }));
  EXPECT_EQ(motor.oido.count(QStringLiteral("Abrir 0")), kCuantos);
  motor.nuevo();
  for (int i = 0; i < kCuantos; ++i) enlaces[4 + i]->Enviar(0, 10, "X");
  EXPECT_TRUE(hasta([&] { return motor.oido.size() >= kCuantos; }));
  EXPECT_EQ(motor.oido.count(QStringLiteral("EnvioVEK 0 1 10 X")), kCuantos);
}

TEST_F(Cables, ConectorLocalYNombresQueNoValen) {
  const QString ruta = carpeta.filePath(QStringLiteral("maquina"));
  QLocalServer servidor;
  ASSERT_TRUE(servidor.listen(ruta));
  QObject::connect(&servidor, &QLocalServer::newConnection, &servidor,
                   [&] { responder(*servidor.nextPendingConnection()); });
  conectores("MESA= local:" + ruta.toLatin1() + "\r\nVACIO= local:" + ruta.toLatin1() +
             "x\r\nRARO= humo:1\r\n");
  EXPECT_EQ(abre(4, QStringLiteral("MESA")), u"Abrir 0");
  enlaces[4]->Pedir(0, 10, "HOLA");
  EXPECT_EQ(oye(), u"ReciboVEK 0 1 10 HOLA");
  EXPECT_EQ(abre(5, QStringLiteral("MESA")), u"error 27");
  EXPECT_EQ(abre(5, QStringLiteral("NADIE")), u"error 24");
  EXPECT_EQ(abre(5, QStringLiteral("RARO")), u"error 24");
  EXPECT_EQ(abre(5, QStringLiteral("VACIO")), u"Abrir 26");
  EXPECT_EQ(cierra(4), u"Cerrar 0");
}

// A pair of pseudo-terminals joined back to back.
struct Pareja {
  QProcess socat;
  QString a, b;
  explicit Pareja(const QTemporaryDir& carpeta)
      : a(carpeta.filePath(QStringLiteral("a"))), b(carpeta.filePath(QStringLiteral("b"))) {
    socat.start(QStringLiteral("socat"), {QStringLiteral("pty,raw,echo=0,link=") + a,
                                          QStringLiteral("pty,raw,echo=0,link=") + b});
    for (int i = 0; i < 500 && !(QFile::exists(a) && QFile::exists(b)); ++i) QThread::msleep(10);
  }
  ~Pareja() {
    socat.terminate();
    socat.waitForFinished(3000);
  }
};

TEST_F(Cables, SeriePorUnParDePseudoterminales) {
  Pareja pareja(carpeta);
  QSerialPort maquina(pareja.b);
  ASSERT_TRUE(maquina.open(QIODevice::ReadWrite));
  responder(maquina);
  cables.canales[0].Device = cables.canales[1].Device = TipoAcceso::Directo;
  cables.canales[0].ControlLinea = 3;  // lines missing from a pseudo-terminal count as up
  cables.RutaPuerto[1] = pareja.a;
  cables.canales[1].Puerto = 1;
  EXPECT_EQ(abre(0), u"Abrir 0");
  enlaces[0]->Enviar(0, 10, "9600,O,7,1");
  EXPECT_EQ(oye(), u"EnvioVEK 0 1 10 9600,O,7,1");
  EXPECT_EQ(abre(1), u"Abrir 4");
  EXPECT_EQ(cierra(0), u"Cerrar 0");
  EXPECT_EQ(abre(0), u"Abrir 0");
  maquina.close();
  pareja.socat.terminate();
  EXPECT_EQ(oye(), u"Cerrar 20");
  EXPECT_EQ(abre(0), u"Abrir 4");  // no such port any more
  cables.canales[0].Puerto = 99;
  EXPECT_EQ(abre(0), u"error 4");
}

}  // namespace
