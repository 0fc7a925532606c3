#include "comm/enlace/MaquinaDeEstados.h"

#include <algorithm>

namespace tarvo::enlace {

namespace {
constexpr int kProrrogas = 4;
}

struct MaquinaDeEstados::Fila {
  int estado;
  bool (MaquinaDeEstados::*datos)();
  void (MaquinaDeEstados::*vence)();
};

// clang-format off
// Data are read only in the states listed here. Time is off at the start of every expiry.
const MaquinaDeEstados::Fila MaquinaDeEstados::kTabla[] = {
    // state            on data                        at the end of its time
    {kReposo,           &MaquinaDeEstados::datosReposo,         nullptr},
    {kEsperaACK,        &MaquinaDeEstados::datosACK,            &MaquinaDeEstados::venceACK},
    {kEsperaRespuesta,  &MaquinaDeEstados::datosTrama,          &MaquinaDeEstados::venceTrama},
    {kEsperaTrama,      &MaquinaDeEstados::datosTrama,          &MaquinaDeEstados::venceTrama},
    {kRepetida,         &MaquinaDeEstados::datosRepetida,       &MaquinaDeEstados::venceRepetida},
    {kEsperaAckNodal,   &MaquinaDeEstados::datosAckNodal,       &MaquinaDeEstados::venceAckNodal},
    {kEsperaTramaNodal, &MaquinaDeEstados::datosTramaNodal,     &MaquinaDeEstados::venceTramaNodal},
    {kCallando,         &MaquinaDeEstados::datosCallando,       &MaquinaDeEstados::venceCallando},
};
// clang-format on

MaquinaDeEstados::MaquinaDeEstados(Exterior& exterior, Reloj& reloj, TiemposEnlace tiempos,
                                   int tiempoRespuesta)
    : exterior_(exterior),
      reloj_(reloj),
      tiempos_(tiempos),
      tiempoRespuesta_(tiempoRespuesta),
      timer_(reloj.temporizador([this] { vencer(); })),
      relectura_(reloj.temporizador([this] { leer(); })) {}

const MaquinaDeEstados::Fila* MaquinaDeEstados::fila() const {
  const auto it = std::ranges::find(kTabla, estado_, &Fila::estado);
  return it == std::end(kTabla) ? nullptr : it;
}

void MaquinaDeEstados::empezar(int secuencia) {
  estado_ = kReposo;
  secuencia_ = secuencia;
  ultima_ = -1;
  ultimaNodal_ = {};
  seguida_ = true;
}

// The abandoned question may still be answered.
void MaquinaDeEstados::abandonar() {
  if (enVuelo()) exterior_.deudas().callada(preguntada_, codigo_);
  if (enVueloNodal()) exterior_.deudas().callada(estacion_, codigo_);
  reposar();
}

void MaquinaDeEstados::reposar() {
  pararEspera();
  pendiente_ = {};
  estado_ = kReposo;
}

void MaquinaDeEstados::parar() {
  pararEspera();
  pendiente_ = {};
  relectura_->parar();
  entrada_.clear();
  estado_ = kDescargando;
}

void MaquinaDeEstados::recibir(QByteArray& nuevos) {
  if (estado_ != kDescargando) entrada_ += nuevos;
  nuevos.clear();
  leer();
}

// Reads as long as a step consumes something: the bytes after an acknowledgement are read by the
// state that the acknowledgement led to. A re-entrant call leaves the rest to the loop that is
// already running.
void MaquinaDeEstados::leer() {
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
void MaquinaDeEstados::leerLuego() {
  if (!leyendo_ && !entrada_.isEmpty()) relectura_->unaVez(0);
}

void MaquinaDeEstados::vencer() {
  if (const Fila* actual = fila(); actual && actual->vence) (this->*actual->vence)();
}

void MaquinaDeEstados::iniciarEspera(qint64 ms) {
  intervalo_ = std::max<qint64>(ms, 0);
  inicio_ = reloj_.monotono();
  plazo_ = inicio_ + intervalo_;
  tope_ = inicio_ + intervalo_ * kProrrogas;
  timer_->unaVez(static_cast<int>(intervalo_));
}

// Never brings the end nearer, never moves it beyond the last one allowed, never wakes a wait that
// is over.
void MaquinaDeEstados::prorrogar(qint64 ms) {
  const qint64 nuevo = std::min(reloj_.monotono() + ms, tope_);
  if (!timer_->activo() || nuevo <= plazo_) return;
  plazo_ = nuevo;
  timer_->unaVez(static_cast<int>(plazo_ - reloj_.monotono()));
}

void MaquinaDeEstados::pararEspera() {
  timer_->parar();
}

void MaquinaDeEstados::vaciar() {
  entrada_.clear();
  exterior_.vaciarCable();
}

}  // namespace tarvo::enlace
