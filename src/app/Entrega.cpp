#include "app/Entrega.h"

namespace tarvo::app {

namespace {

constexpr int kSilencioMs = 3 * 60 * 1000;  // for one that reports every 20 s

}  // namespace

Entrega::Entrega(const QString& base, const Peticion& peticion, Oyente oyente, Reloj& reloj)
    : ruta_(base),
      oyente_(std::move(oyente)),
      silencio_(reloj.temporizador([this] { cortarse(); })) {
  QObject::connect(&enchufe_, &QLocalSocket::connected, &enchufe_,
                   [this, linea = escribir(peticion)] {
                     enchufe_.write(linea);
                     enchufe_.flush();
                   });
  QObject::connect(&enchufe_, &QLocalSocket::readyRead, &enchufe_, [this] { leer(); });
  // Queued: a socket without a listener fails before this is constructed.
  QObject::connect(
      &enchufe_, &QLocalSocket::errorOccurred, &enchufe_, [this] { cortarse(); },
      Qt::QueuedConnection);
  QObject::connect(
      &enchufe_, &QLocalSocket::disconnected, &enchufe_, [this] { cortarse(); },
      Qt::QueuedConnection);
  silencio_->unaVez(kSilencioMs);
  enchufe_.connectToServer(*ruta_);
}

Entrega::~Entrega() {
  enchufe_.disconnect();
}

void Entrega::parar() {
  enchufe_.write(escribirParar());
  enchufe_.flush();
}

void Entrega::leer() {
  recibido_ += enchufe_.readAll();
  for (qsizetype fin = 0; !acabada_ && (fin = recibido_.indexOf('\n')) >= 0;) {
    const auto respuesta = leerRespuesta(recibido_.left(fin));
    recibido_.remove(0, fin + 1);
    if (!respuesta) return cortarse();
    silencio_->unaVez(kSilencioMs);
    if (respuesta->que == Respuesta::Que::Fin) {
      acabada_ = true;
      silencio_->parar();
      const auto alAcabar = oyente_.alAcabar;
      return alAcabar(respuesta->estado);
    }
    if (respuesta->que == Respuesta::Que::Linea) oyente_.decir(respuesta->texto);
    if (respuesta->que == Respuesta::Que::Aviso) oyente_.avisar(respuesta->texto);
  }
  if (recibido_.size() > kMayorRecado) cortarse();
}

void Entrega::cortarse() {
  // Data received before the end of the connection counts.
  if (!acabada_ && enchufe_.bytesAvailable() > 0) leer();
  if (std::exchange(acabada_, true)) return;
  silencio_->parar();
  const auto alCortarse = oyente_.alCortarse;
  alCortarse();
}

}  // namespace tarvo::app
