// A question to a machine over TCP on this computer, through the link and through bare sockets: the
// request, its acknowledgement, the answer and ours. The far side is the same for both: a thread
// that sends fixed bytes.
#include <vector>

#include "Razones.h"
#include "TcpLocal.h"
#include "comm/cables/AjustesCables.h"
#include "comm/cables/FabricaReal.h"
#include "comm/enlace/AjustesEnlace.h"
#include "core/ajustes/Ajustes.h"

namespace tarvo::banco {
namespace {

constexpr int kCodigoBanco = 57, kPreguntas = 2000, kVueltasEnlace = 21;
const QByteArray kDatosBanco(120, '7');

// --- through the link ---
struct ClienteBanco final : ClienteMudo {
  enlace::Enlaces* enlaces = nullptr;
  int faltan = 0, abiertos = 0;
  std::vector<int> quedan;  // questions left, by channel

  void preguntar(int canal) {
    if (quedan[static_cast<size_t>(canal)]-- > 0) (*enlaces)[canal]->Pedir(1, kCodigoBanco, {});
  }
  void Abrir_Evento(int, int error) override { abiertos -= error == 0 ? 1 : 0; }
  void ReciboVEK_Evento(int canal, int, int, int, const QByteArray&) override {
    --faltan;
    preguntar(canal);
  }
  bool encaja(int, int, int codigo, const QByteArray&) override { return codigo == kCodigoBanco; }
};

class PorEnlace {
 public:
  PorEnlace(quint16 puerto, int cuantos)
      : cuantos_(cuantos),
        ajustes_(carpeta_.path(), Idioma::Espanol,
                 {enlace::ajustesCables(), enlace::ajustesEnlace()}) {
    escribirConectores(carpeta_, u'B', cuantos, puerto);
    cliente_.enlaces = &enlaces_;
    cliente_.abiertos = cuantos;
    for (int i = 0; i < cuantos; ++i)
      enlaces_.AbrirEnlace(enlace::Para::VekMotor, 4 + i, 0, QStringLiteral("B%1").arg(i + 1),
                           &cliente_);
    esperarTcp([&] { return cliente_.abiertos <= 0; });
  }
  void vuelta() {
    cliente_.faltan = kPreguntas;
    cliente_.quedan.assign(static_cast<size_t>(4 + cuantos_), kPreguntas / cuantos_);
    for (int i = 0; i < cuantos_; ++i) cliente_.preguntar(4 + i);
    esperarTcp([&] { return cliente_.faltan <= 0; });
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

// --- through bare sockets ---
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
    esperarTcp([&] { return faltan_ <= 0; });
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
  const Bucle bucle;
  LadoLejano maquina(tramas::cuerpoVEK(1, kCodigoBanco, kDatosBanco));
  const quint16 puerto = maquina.arrancar();
  PorEnlace nuestro(puerto, cuantos);
  PorSocket limite(puerto, cuantos);
  return razon([&] { nuestro.vuelta(); }, [&] { limite.vuelta(); }, kVueltasEnlace);
}

const AltaMedida kUno("enlace.pregunta", 0.8, [] { return medirEnlaces(1); });
const AltaMedida kCien("enlace.cien", 0.8, [] { return medirEnlaces(100); });

}  // namespace
}  // namespace tarvo::banco
