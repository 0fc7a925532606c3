// How a machine sends its answers, frame by frame, and spoils them on request.
#include "simulador/Maquina.h"

namespace tarvo::simulador {

void Maquina::emitirSiguiente(const QByteArray& delante) {
  if (cola_.empty()) {
    emisor_.enviar(delante);
    return;
  }
  Mensaje mensaje = std::move(cola_.front());
  cola_.pop_front();
  emitir(delante, std::move(mensaje), percances_.mensaje(indice_++));
}

void Maquina::emitir(const QByteArray& delante, Mensaje mensaje, const Sucesos& sucesos) {
  if (sucesos.tiene(Averia::OtroCodigo)) ++mensaje.codigo;
  if (sucesos.tiene(Averia::RegistroCorto)) {
    const auto mitad = static_cast<int>(mensaje.datos.size() / 2);
    mensaje.datos.truncate(sucesos.valor(Averia::RegistroCorto, mitad));
  }
  const QByteArray trama = construir(mensaje);
  esperarAck(trama);
  mandar(delante, estropear(trama, sucesos), sucesos, mensaje.retrasoMs);
  if (sucesos.tiene(Averia::RespuestaDoble)) emisor_.enviar(construir(mensaje));
}

void Maquina::mandar(const QByteArray& delante, const QByteArray& trama, const Sucesos& sucesos,
                     int retrasoMs) {
  if (sucesos.tiene(Averia::Corte)) {
    emisor_.enviar(delante);
    if (sucesos.valor(Averia::Corte, 1) == 2)
      emisor_.enviar(trama.left(trama.size() / 2), retrasoMs);
    emisor_.cortar(false, retrasoMs);
    return;
  }
  if (sucesos.tiene(Averia::RespuestaPegada)) {
    emisor_.enviar(delante + trama);
    return;
  }
  emisor_.enviar(delante);
  if (sucesos.tiene(Averia::RespuestaPerdida)) return;
  if (sucesos.tiene(Averia::RespuestaLenta)) {
    constexpr int kTimeOut = 10000;
    lento_.enviar(trama, sucesos.valor(Averia::RespuestaLenta,
                                       kTimeOut + percances_.azar().entero(1000, 9000)));
    return;
  }
  if (sucesos.tiene(Averia::RespuestaTardia)) {
    tardias_.push_back(trama);
    return;
  }
  if (sucesos.tiene(Averia::RespuestaPartida)) {
    const qsizetype tercio = trama.size() / 3;
    emisor_.enviar(trama.left(tercio), retrasoMs);
    emisor_.enviar(trama.mid(tercio, tercio), retrasoMs + 40);
    emisor_.enviar(trama.mid(2 * tercio), retrasoMs + 80);
  } else {
    emisor_.enviar(trama, retrasoMs);
  }
  if (sucesos.tiene(Averia::MismoNumero)) emisor_.enviar(trama, retrasoMs + 10);
}

QByteArray Maquina::estropear(QByteArray trama, const Sucesos& sucesos) {
  Azar& azar = percances_.azar();
  if (sucesos.tiene(Averia::Basura)) {
    trama = QByteArray(sucesos.valor(Averia::Basura, 70000), '\0');
    for (char& c : trama) c = static_cast<char>(azar.entero(0, 255));
    return trama;
  }
  if (sucesos.tiene(Averia::ControlMalo)) trama = conControlMalo(trama);
  if (sucesos.tiene(Averia::BitsCambiados)) {
    for (int veces = azar.entero(1, 3); veces > 0; --veces) {
      char& c = trama[azar.entero(0, static_cast<int>(trama.size()) - 1)];
      c = static_cast<char>(static_cast<unsigned char>(c) ^ (1U << azar.entero(0, 7)));
    }
  }
  return trama;
}

void Maquina::esperarAck(const QByteArray& trama) {
  enVuelo_ = trama;
  repetidas_ = 0;
  if (opciones_.repeticiones > 0) relojAck_->unaVez(opciones_.esperaAckMs);
}

// The frame in flight arrived: the next one of the list may be sent.
void Maquina::alConfirmar() {
  if (enVuelo_.isEmpty()) return;
  enVuelo_.clear();
  relojAck_->parar();
  emitirSiguiente({});
}

void Maquina::alVencerAck() {
  if (enVuelo_.isEmpty()) return;
  if (repetidas_++ < opciones_.repeticiones) {
    emisor_.enviar(enVuelo_);
    relojAck_->unaVez(opciones_.esperaAckMs);
    return;
  }
  enVuelo_.clear();
  cola_.clear();
}

}  // namespace tarvo::simulador
