// Shared by the measurements over TCP on this computer: the far side, the connectors that lead to
// it, a client that ignores unrequested frames, and the event loop.
#pragma once

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>
#include <atomic>
#include <functional>
#include <memory>

#include "Comun.h"
#include "comm/enlace/comtvIP.h"
#include "comm/tramas/Trama.h"

namespace tarvo::banco {

// A thread that answers each frame, recognised by its end sign.
class LadoLejano final : public QThread {
 public:
  // The body of the answer to a frame.
  using Responder = std::function<QByteArray(QByteArrayView trama)>;
  // Makes one for each connection.
  explicit LadoLejano(std::function<Responder()> maquina) : maquina_(std::move(maquina)) {}
  // The same answer to every frame, without reading it.
  explicit LadoLejano(QByteArray cuerpo)
      : LadoLejano([cuerpo = std::move(cuerpo)]() -> Responder {
          return [cuerpo](QByteArrayView) { return cuerpo; };
        }) {}
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
  // Two answers in turn, since one with the last number would count as repeated.
  void atender(QTcpSocket* s) const {
    s->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    auto turno = std::make_shared<int>(0);
    QObject::connect(s, &QTcpSocket::readyRead, s, [s, turno, responder = maquina_()] {
      const QByteArray bytes = s->readAll();
      const qsizetype trama = bytes.indexOf(tramas::kSTX);
      if (trama >= 0 && bytes.endsWith(tramas::kETX))
        s->write(tramas::kACK + tramas::construirVEK(
                                    ++*turno % 2, responder(QByteArrayView(bytes).sliced(trama))));
    });
    QObject::connect(s, &QTcpSocket::disconnected, s, &QObject::deleteLater);
  }
  const std::function<Responder()> maquina_;
  std::atomic<quint16> puerto_ = 0;
};

// CONECTORES.INI with the names `letra`1 to `letra`n, which all lead to that port. A computer has
// many addresses, so each is a separate access.
inline void escribirConectores(const QTemporaryDir& carpeta, QChar letra, int n, quint16 puerto) {
  QFile f(carpeta.filePath(QStringLiteral("CONECTORES.INI")));
  if (!f.open(QIODevice::WriteOnly)) morir(f.errorString());
  for (int i = 1; i <= n; ++i)
    f.write(QStringLiteral("%1%2= tcp:127.0.0.%2:%3\r\n").arg(letra).arg(i).arg(puerto).toLatin1());
}

struct ClienteMudo : enlace::ClienteEnlace {
  void Abrir_Evento(int, int) override {}
  void Cerrar_Evento(int, int) override {}
  void EnvioVEK_Evento(int, int, int, int, const QByteArray&) override {}
  void EnvioNDL_Evento(int, int) override {}
  void ReciboNDL_Evento(int, int, int, const QByteArray&) override {}
  void ReciboVEK_Evento(int, int, int, int, const QByteArray&) override {}
  void CD_Evento(int, bool) override {}
  bool encaja(int, int, int, const QByteArray&) override { return true; }

 protected:
  ~ClienteMudo() = default;
};

template <class Hasta>
void esperarTcp(const Hasta& hasta) {
  while (!hasta()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

// The event loop's object, if there is none yet.
class Bucle {
 public:
  Bucle() {
    if (!QCoreApplication::instance()) app_ = std::make_unique<QCoreApplication>(argc_, argv_);
  }

 private:
  int argc_ = 1;
  char nombre_[12] = "tarvo-bench";
  char* argv_[2] = {nombre_, nullptr};
  std::unique_ptr<QCoreApplication> app_;
};

}  // namespace tarvo::banco
