#include "simulador/Emisor.h"

#include <algorithm>

namespace tarvo::simulador {

Emisor::Emisor(Reloj& reloj)
    : reloj_(reloj), temporizador_(reloj.temporizador([this] { vaciar(); })) {}

void Emisor::conectar(Conexion conexion) {
  desconectar();
  conexion_ = std::move(conexion);
}

void Emisor::desconectar() {
  envios_.clear();
  temporizador_->parar();
  conexion_ = {};
}

void Emisor::enviar(const QByteArray& bytes, int retrasoMs) {
  if (!bytes.isEmpty()) poner(Accion::Bytes, bytes, retrasoMs);
}

int Emisor::retrasoPendiente() const {
  return envios_.empty() ? 0 : static_cast<int>(envios_.back().cuando - reloj_.monotono());
}

void Emisor::cortar(bool limpio, int retrasoMs) {
  poner(limpio ? Accion::CorteLimpio : Accion::Corte, {}, retrasoMs);
}

void Emisor::poner(Accion accion, QByteArray bytes, int retrasoMs) {
  if (!conectado()) return;
  qint64 cuando = reloj_.monotono() + retrasoMs;
  if (!envios_.empty()) cuando = std::max(cuando, envios_.back().cuando);
  envios_.push_back({cuando, accion, std::move(bytes)});
  vaciar();
}

// The other end may answer or disconnect from within `salida`: no reference into the queue is held
// across the call.
void Emisor::vaciar() {
  if (vaciando_) return;
  vaciando_ = true;
  while (!envios_.empty() && envios_.front().cuando <= reloj_.monotono()) {
    const Envio envio = std::move(envios_.front());
    envios_.pop_front();
    const Conexion conexion = conexion_;
    if (envio.accion == Accion::Bytes) {
      conexion.salida(envio.bytes);
    } else {
      desconectar();
      conexion.cortar(envio.accion == Accion::CorteLimpio);
    }
  }
  vaciando_ = false;
  if (!envios_.empty())
    temporizador_->unaVez(static_cast<int>(envios_.front().cuando - reloj_.monotono()));
}

}  // namespace tarvo::simulador
