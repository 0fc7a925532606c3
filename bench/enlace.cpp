// A question to a machine over TCP on this computer, through the link and through bare sockets: the
// request, its acknowledgement, the answer and ours. The far side is one and the same: a thread
// that sends fixed bytes.
#include <QCoreApplication>
#include <QEventLoop>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QThread>
#include <atomic>
#include <memory>
#include <vector>

#include "Razones.h"
#include "comm/enlace/FabricaReal.h"
#include "comm/enlace/comtvIP.h"
#include "comm/tramas/Trama.h"
#include "core/ajustes/Ajustes.h"

namespace tarvo {
namespace {

constexpr int kCodigoBanco = 57, kPreguntas = 2000, kVueltasEnlace = 21;
const QByteArray kDatosBanco(120, '7');

// Answers each frame, which it knows by its end sign, without looking into it.
class LadoLejano final : public QThread {
 public:
  ~LadoLejano() override {
    quit();
    wait();
  }
  quint16 arrancar() {
    start();
    while (puerto_ == 0) QThread::usleep(100);
    return puerto_;
  }

 protected:
  void run() override {
    QTcpServer servidor;
    servidor.listen(QHostAddress::AnyIPv4);
    QObject::connect(&servidor, &QTcpServer::newConnection, &servidor, [&] {
      while (QTcpSocket* s = servidor.nextPendingConnection()) atender(s);
    });
    puerto_ = servidor.serverPort();
    exec();
  }

 private:
  static void atender(QTcpSocket* s) {
    s->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    auto turno = std::make_shared<int>(0);
    // Two answers by turns, since one with the number of the last would be a repeated one.
    const QByteArray cuerpo = tramas::cuerpoVEK(1, kCodigoBanco, kDatosBanco);
    QObject::connect(s, &QTcpSocket::readyRead, s, [=] {
      if (s->readAll().contains(tramas::kETX))
        s->write(tramas::kACK + tramas::construirVEK(++*turno % 2, cuerpo));
    });
  }
  std::atomic<quint16> puerto_ = 0;
};

// Runs the event loop until `faltan` is 0.
void esperarBanco(const int& faltan) {
  while (faltan > 0) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

// --- through the link
// ------------------------------------------------------------------------------
struct ClienteBanco final : enlace::ClienteEnlace {
  enlace::Enlaces* enlaces = nullptr;
  int faltan = 0, abiertos = 0;
  std::vector<int> quedan;  // questions left, by channel

  void preguntar(int canal) {
    if (quedan[static_cast<size_t>(canal)]-- > 0) (*enlaces)[canal]->Pedir(1, kCodigoBanco, {});
  }
  void Abrir_Evento(int, int error) override { abiertos -= error == 0 ? 1 : 0; }
  void Cerrar_Evento(int, int) override {}
  void EnvioVEK_Evento(int, int, int, int, const QByteArray&) override {}
  void EnvioNDL_Evento(int, int) override {}
  void ReciboNDL_Evento(int, int, int, const QByteArray&) override {}
  void ReciboVEK_Evento(int canal, int, int, int, const QByteArray&) override {
    --faltan;
    preguntar(canal);
  }
  void CD_Evento(int, bool) override {}
  bool encaja(int, int, int codigo, const QByteArray&) override { return codigo == kCodigoBanco; }
};

class PorEnlace {
 public:
  PorEnlace(quint16 puerto, int cuantos)
      : cuantos_(cuantos), ajustes_(carpeta_.path(), Idioma::Espanol) {
    QFile f(carpeta_.filePath(QStringLiteral("CONECTORES.INI")));
    if (!f.open(QIODevice::WriteOnly)) return;
    // One machine has many addresses on this computer, so that each is an access of its own.
    for (int i = 0; i < cuantos; ++i)
      f.write(
          QStringLiteral("B%1= tcp:127.0.0.%2:%3\r\n").arg(i).arg(i + 1).arg(puerto).toLatin1());
    f.close();
    cliente_.enlaces = &enlaces_;
    cliente_.abiertos = cuantos;
    for (int i = 0; i < cuantos; ++i)
      enlaces_.AbrirEnlace(enlace::kVekMotor, 4 + i, 0, QStringLiteral("B%1").arg(i), &cliente_);
    esperarBanco(cliente_.abiertos);
  }
  void vuelta() {
    cliente_.faltan = kPreguntas;
    cliente_.quedan.assign(static_cast<size_t>(4 + cuantos_), kPreguntas / cuantos_);
    for (int i = 0; i < cuantos_; ++i) cliente_.preguntar(4 + i);
    esperarBanco(cliente_.faltan);
  }

 private:
  const int cuantos_;
  QTemporaryDir carpeta_;
  RelojReal reloj_;
  Ajustes ajustes_;
  enlace::FabricaReal fabrica_{reloj_, ajustes_};
  Azar azar_{1};
  ClienteBanco cliente_;
  enlace::Enlaces enlaces_{reloj_, ajustes_, fabrica_, azar_};
};

// --- through bare sockets
// --------------------------------------------------------------------------
class PorSocket {
 public:
  PorSocket(quint16 puerto, int cuantos) : cuantos_(cuantos) {
    for (int i = 0; i < cuantos; ++i) {
      auto& s = *sockets_.emplace_back(std::make_unique<QTcpSocket>());
      s.connectToHost(QHostAddress(QStringLiteral("127.0.0.%1").arg(i + 1)), puerto);
      s.waitForConnected();
      s.setSocketOption(QAbstractSocket::LowDelayOption, 1);
      QObject::connect(&s, &QTcpSocket::readyRead, &s,
                       [this, i] { llega(static_cast<size_t>(i)); });
    }
  }
  void vuelta() {
    faltan_ = kPreguntas;
    quedan_.assign(sockets_.size(), kPreguntas / cuantos_);
    for (size_t i = 0; i < sockets_.size(); ++i) preguntar(i);
    esperarBanco(faltan_);
  }

 private:
  void preguntar(size_t i) {
    if (quedan_[i]-- > 0) sockets_[i]->write(pregunta_);
  }
  void llega(size_t i) {
    if (!sockets_[i]->readAll().contains(tramas::kETX)) return;
    sockets_[i]->write(QByteArray(1, tramas::kACK));
    --faltan_;
    preguntar(i);
  }
  const int cuantos_;
  const QByteArray pregunta_ = tramas::construirVEK(1, tramas::cuerpoVEK(1, kCodigoBanco, {}));
  std::vector<std::unique_ptr<QTcpSocket>> sockets_;
  std::vector<int> quedan_;
  int faltan_ = 0;
};

double medirEnlaces(int cuantos) {
  int argc = 1;
  char nombre[] = "tarvo-bench";
  char* argv[] = {nombre, nullptr};
  std::unique_ptr<QCoreApplication> app;
  if (!QCoreApplication::instance()) app = std::make_unique<QCoreApplication>(argc, argv);
  LadoLejano maquina;
  const quint16 puerto = maquina.arrancar();
  PorEnlace nuestro(puerto, cuantos);
  PorSocket limite(puerto, cuantos);
  return banco::razon([&] { nuestro.vuelta(); }, [&] { limite.vuelta(); }, kVueltasEnlace);
}

const banco::Registro kUno("enlace.pregunta", 0.8, [] { return medirEnlaces(1); });
const banco::Registro kCien("enlace.cien", 0.8, [] { return medirEnlaces(100); });

}  // namespace
}  // namespace tarvo
