#include <algorithm>
#include <utility>

#include "comm/enlace/Errores.h"
#include "comm/enlace/MaquinaDeEstados.h"

namespace tarvo::enlace {

namespace {
constexpr int kEnviosNodalMax = 4;
// A machine may ask for more time as often as it likes, but for no longer than this after the start
// of the wait.
constexpr qint64 kEsperaNodalMax = 3600 * 1000;
}  // namespace

// An acknowledgement names no question: any owed answer may be taken for it.
void MaquinaDeEstados::enviarNODAL(int addr, int codigo, const QByteArray& datos) {
  abandonar();
  if (!modo_.limpia || exterior_.deudas().ninguna()) return lanzarNODAL(addr, codigo, datos);
  callar({[=, this] { lanzarNODAL(addr, codigo, datos); },
          [this] { exterior_.envioNDL(kErrorNodalSinConfirmar); }});
}

void MaquinaDeEstados::lanzarNODAL(int addr, int codigo, const QByteArray& datos) {
  // Input that precedes a frame can't answer it. Nor is it acknowledged: an acknowledgement names
  // no frame, and the machine would take it for that of a record that never arrived.
  vaciar();
  envios_ = 1;
  repetida_ = false;
  estado_ = kEsperaAckNodal;
  // Each machine of a wire counts its own frames.
  if (const int antes = std::exchange(estacion_, addr & 0xFF); antes != estacion_) ultima_ = -1;
  codigo_ = codigo;
  cuerpo_ = datos;
  iniciarEspera(tiempos_.ack);
  emitirNODAL();
}

void MaquinaDeEstados::esperarNODAL() {
  estado_ = kEsperaTramaNodal;
  iniciarEspera(tiempoRespuesta_);
  leerLuego();
}

void MaquinaDeEstados::emitirNODAL() {
  secuencia_ = (secuencia_ + 1) & 0xFF;
  exterior_.escribir(
      tramas::construirNODAL({tiempos_.nodo, estacion_, secuencia_, codigo_, cuerpo_}));
}

// --- data ---

bool MaquinaDeEstados::datosAckNodal() {
  const auto trama = leerLinea();
  if (trama && trama->codigo == tramas::kNodalAck)
    acabarNodal(0);
  else if (trama && trama->codigo == tramas::kNodalRechazo)
    acabarNodal(kErrorRechazo);
  else
    prorrogar(tiempos_.ack);
  return true;
}

// After its time the state stays but reads nothing: a late frame waits for the next question.
bool MaquinaDeEstados::datosTramaNodal() {
  if (!timer_->activo()) return false;
  const auto trama = leerLinea();
  if (!trama) {
    prorrogar(tiempoRespuesta_);
    return true;
  }
  if (trama->codigo == tramas::kNodalEspera)
    esperarMas(trama->datos);
  else if (trama->codigo == tramas::kNodalRechazo)
    acabarReciboNodal(kErrorRechazo, *trama);
  else if (trama->codigo == tramas::kNodalFin ||
           exterior_.encaja(estacion_, trama->codigo, trama->datos))
    acabarReciboNodal(0, *trama);
  return true;
}

// --- time ---

void MaquinaDeEstados::venceAckNodal() {
  if (modo_.unaVez || envios_ >= kEnviosNodalMax) {
    vaciar();
    return acabarNodal(kErrorNodalSinConfirmar);
  }
  ++envios_;
  repetida_ = true;
  iniciarEspera(tiempos_.ack);
  emitirNODAL();
}

void MaquinaDeEstados::venceTramaNodal() {
  exterior_.deudas().callada(estacion_, codigo_);
  exterior_.reciboNDL(kErrorTiempoRecepcion, 0, {});
}

// --- frames ---

// As many units as the number at the head of the data, one for none or 0, counted from now.
void MaquinaDeEstados::esperarMas(const QByteArray& datos) {
  qint64 unidades = 0;
  for (const char c : datos.trimmed()) {
    if (c < '0' || c > '9' || unidades > kEsperaNodalMax) break;
    unidades = unidades * 10 + (c - '0');
  }
  const qint64 ms = std::max<qint64>(unidades, 1) * tiempos_.espera;
  const qint64 fin = std::min(reloj_.monotono() + ms, inicio_ + kEsperaNodalMax);
  if (fin <= reloj_.monotono()) return;  // the end of the wait stays
  plazo_ = fin;
  tope_ = std::max(tope_, fin + tiempoRespuesta_);
  timer_->unaVez(static_cast<int>(fin - reloj_.monotono()));
}

std::optional<tramas::TramaNODAL> MaquinaDeEstados::leerLinea() {
  auto trama = tramas::leerNODAL(entrada_).trama;
  if (!trama || trama->destino != tiempos_.nodo || trama->origen != estacion_) return std::nullopt;
  const bool datos = trama->codigo != tramas::kNodalAck && trama->codigo != tramas::kNodalNak;
  // A list's frame before the acknowledgement belongs to an earlier question: its acknowledgement
  // would count as that of a frame of the new list.
  if (datos && estado_ == kEsperaAckNodal && trama->codigo != tramas::kNodalRechazo)
    return std::nullopt;
  if (datos) confirmar();
  // A repeated frame may come after acknowledgements, which have numbers too.
  if (trama->secuencia == ultima_ || (datos && *trama == ultimaNodal_)) return std::nullopt;
  seguida_ = ultima_ < 0 || trama->secuencia == ((ultima_ + 1) & 0xFF);
  ultima_ = trama->secuencia;
  if (datos) ultimaNodal_ = *trama;
  return trama;
}

void MaquinaDeEstados::confirmar() {
  secuencia_ = (secuencia_ + 1) & 0xFF;
  exterior_.escribir(
      tramas::construirNODAL({tiempos_.nodo, estacion_, secuencia_, tramas::kNodalAck, {}}));
}

void MaquinaDeEstados::acabarNodal(int error) {
  if (repetida_ || error == kErrorNodalSinConfirmar) exterior_.deudas().callada(estacion_, codigo_);
  reposar();
  exterior_.envioNDL(error);
}

void MaquinaDeEstados::acabarReciboNodal(int error, const tramas::TramaNODAL& trama) {
  reposar();
  exterior_.reciboNDL(error, trama.codigo, trama.datos);
}

}  // namespace tarvo::enlace
