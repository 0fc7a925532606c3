#include "comm/enlace/Maquina.h"

#include <algorithm>

namespace tarvo::enlace {

namespace {
constexpr int kProrrogas = 4;
}

struct Maquina::Fila {
  int estado;
  bool (Maquina::*datos)();
  void (Maquina::*vence)();
};

// clang-format off
// Data are read only in the states listed here. Time is off at the start of every expiry.
const Maquina::Fila Maquina::kTabla[] = {
    // state            on data                        at the end of its time
    {kReposo,           &Maquina::datosReposo,         nullptr},
    {kEsperaACK,        &Maquina::datosACK,            &Maquina::venceACK},
    {kEsperaRespuesta,  &Maquina::datosTrama,          &Maquina::venceTrama},
    {kEsperaTrama,      &Maquina::datosTrama,          &Maquina::venceTrama},
    {kRepetida,         &Maquina::datosRepetida,       &Maquina::venceRepetida},
    {kEsperaAckNodal,   &Maquina::datosAckNodal,       &Maquina::venceAckNodal},
    {kEsperaTramaNodal, &Maquina::datosTramaNodal,     &Maquina::venceTramaNodal},
    {kCallando,         &Maquina::datosCallando,       &Maquina::venceCallando},
};
// clang-format on

Maquina::Maquina(Exterior& exterior, Reloj& reloj, TiemposEnlace tiempos, int tiempoRespuesta)
    : exterior_(exterior),
      reloj_(reloj),
      tiempos_(tiempos),
      tiempoRespuesta_(tiempoRespuesta),
      timer_(reloj.temporizador([this] { vencer(); })),
      relectura_(reloj.temporizador([this] { leer(); })) {}

const Maquina::Fila* Maquina::fila() const {
  const auto it = std::ranges::find(kTabla, estado_, &Fila::estado);
  return it == std::end(kTabla) ? nullptr : it;
}

void Maquina::empezar(int secuencia) {
  estado_ = kReposo;
  secuencia_ = secuencia;
  ultima_ = -1;
  ultimaNodal_ = {};
  seguida_ = true;
}

// The abandoned question may still be answered.
void Maquina::abandonar() {
  if (enVuelo()) exterior_.deudas().callada(preguntada_, codigo_);
  if (enVueloNodal()) exterior_.deudas().callada(estacion_, codigo_);
  reposar();
}

void Maquina::reposar() {
  pararEspera();
  pendiente_ = {};
  estado_ = kReposo;
}

void Maquina::parar() {
  pararEspera();
  pendiente_ = {};
  relectura_->parar();
  entrada_.clear();
  estado_ = kDescargando;
}

void Maquina::recibir(QByteArray& nuevos) {
  if (estado_ != kDescargando) entrada_ += nuevos;
  nuevos.clear();
  leer();
}

// Reads as long as a step consumes something: the bytes after an acknowledgement are read by the
// state that the acknowledgement led to. A re-entrant call leaves the rest to the loop that is
// already running.
void Maquina::leer() {
  if (leyendo_) return;
  leyendo_ = true;
  for (qsizetype antes = -1; !entrada_.isEmpty() && entrada_.size() != antes;) {
    antes = entrada_.size();
    const Fila* actual = fila();
    if (!actual || !(this->*actual->datos)()) break;
  }
  leyendo_ = false;
  if (entrada_.size() > tramas::kMaxPendiente) entrada_.clear();
}

// For a wait that begins outside a reading: bytes already received are read, but not inside the
// call.
void Maquina::leerLuego() {
  if (!leyendo_ && !entrada_.isEmpty()) relectura_->unaVez(0);
}

void Maquina::vencer() {
  if (const Fila* actual = fila(); actual && actual->vence) (this->*actual->vence)();
}

void Maquina::iniciarEspera(qint64 ms) {
  intervalo_ = std::max<qint64>(ms, 0);
  inicio_ = reloj_.monotono();
  plazo_ = inicio_ + intervalo_;
  tope_ = inicio_ + intervalo_ * kProrrogas;
  timer_->unaVez(static_cast<int>(intervalo_));
}

// Never brings the end nearer, never moves it beyond the last one allowed, never wakes a wait that
// is over.
void Maquina::prorrogar(qint64 ms) {
  const qint64 nuevo = std::min(reloj_.monotono() + ms, tope_);
  if (!timer_->activo() || nuevo <= plazo_) return;
  plazo_ = nuevo;
  timer_->unaVez(static_cast<int>(plazo_ - reloj_.monotono()));
}

void Maquina::pararEspera() {
  timer_->parar();
}

void Maquina::vaciar() {
  entrada_.clear();
  exterior_.vaciarCable();
}

}  // namespace tarvo::enlace
