#include <utility>

#include "comm/enlace/Errores.h"
#include "comm/enlace/MaquinaDeEstados.h"
#include "comm/enlace/comtvIP.h"

namespace tarvo::enlace {

namespace {
constexpr int kEnviosMax = 4;     // a first send and three repeats
constexpr int kRepetidasMax = 4;  // after that, a machine that only repeats itself gave no answer
constexpr int kEsperaRepetida = 15000;
constexpr int kCodigoAncho = 999;  // above it the answer has the wide layout
}  // namespace

void MaquinaDeEstados::enviarVEK(int addr, int codigo, const QByteArray& datos, bool pedir) {
  abandonar();
  if (!modo_.limpia || !exterior_.deudas().debida(codigo))
    return lanzarVEK(addr, codigo, datos, pedir);
  callar({[=, this] { lanzarVEK(addr, codigo, datos, pedir); },
          [this] { exterior_.envioVEK(kErrorSinACK, -1, 0, {}); }});
}

void MaquinaDeEstados::lanzarVEK(int addr, int codigo, const QByteArray& datos, bool pedir) {
  quitarACKs();  // earlier ones can't acknowledge this frame
  pedir_ = pedir;
  primera_ = true;
  separar_ = dudada_ = repetida_ = false;
  preguntada_ = addr;
  envios_ = 1;
  repetidas_ = 0;
  estado_ = kEsperaACK;
  estacion_ = 0;
  codigo_ = codigo;
  cuerpo_ = tramas::cuerpoVEK(addr, codigo, datos);
  iniciarEspera(tiempos_.ack);
  emitirVEK();
}

void MaquinaDeEstados::esperarVEK(int codigo) {
  codigo_ = codigo;
  repetidas_ = 0;
  pedir_ = true;
  estado_ = kEsperaTrama;
  iniciarEspera(tiempoRespuesta_);
  leerLuego();
}

void MaquinaDeEstados::emitirVEK() {
  secuencia_ = (secuencia_ + 1) % 100;
  exterior_.escribir(tramas::construirVEK(secuencia_, cuerpo_));
}

void MaquinaDeEstados::preguntarOtraVez() {
  envios_ = 1;
  estado_ = kEsperaACK;
  iniciarEspera(tiempos_.ack);
  emitirVEK();
}

// Machines of one wire count their frames separately, so that the answer of one may have the number
// of the last frame of another: it may be that frame, repeated, or the answer. An order that is
// sent once, and a list, which would begin anew, wait as for a repeat.
bool MaquinaDeEstados::puedeSerDeOtra() const {
  return estado_ == kEsperaRespuesta && preguntada_ != contestada_ && !modo_.unaVez && !dudada_;
}

void MaquinaDeEstados::quitarACKs() {
  qsizetype n = 0;
  while (n < entrada_.size() && entrada_[n] == tramas::kACK) ++n;
  entrada_.remove(0, n);
}

// --- data ---

// Nothing was asked: a transaction is handed over, any other frame is only acknowledged.
bool MaquinaDeEstados::datosReposo() {
  const Para para = exterior_.para();
  if (para != Para::VekCaptura && para != Para::VekAmbos) return false;
  quitarACKs();
  leerTramas(false);
  return true;
}

bool MaquinaDeEstados::datosACK() {
  if (entrada_.front() == tramas::kSTX) {
    leerTramas(false);
    if (estado_ == kEsperaACK) prorrogar(intervalo_);
    return true;
  }
  if (entrada_.front() != tramas::kACK) return false;
  entrada_.remove(0, 1);
  if (tiempoRespuesta_ < 0) {
    acabarVEK(0);
    return true;
  }
  estado_ = pedir_ ? kEsperaTrama : kEsperaRespuesta;
  iniciarEspera(tiempoRespuesta_);
  return true;
}

bool MaquinaDeEstados::datosTrama() {
  const int antes = estado_;
  quitarACKs();
  const Leido leido = leerTramas(true);
  const bool sigue = leido == Leido::Nada || leido == Leido::Transaccion;
  if (sigue && estado_ == antes) prorrogar(tiempoRespuesta_);
  return true;
}

bool MaquinaDeEstados::datosRepetida() {
  quitarACKs();
  // A list goes on after a repeated frame: its next one has been acknowledged and won't come a
  // second time.
  leerTramas(pedir_ && !primera_);
  if (estado_ == kRepetida) prorrogar(intervalo_);
  return true;
}

// --- time ---

void MaquinaDeEstados::venceACK() {
  if (modo_.unaVez || envios_ >= kEnviosMax) {
    vaciar();
    return acabarVEK(kErrorSinACK);
  }
  // Bytes at the front that are neither an acknowledgement nor a frame would hide those after them.
  while (!entrada_.isEmpty() && entrada_.front() != tramas::kACK &&
         entrada_.front() != tramas::kSTX)
    entrada_.remove(0, 1);
  ++envios_;
  repetida_ = true;
  iniciarEspera(intervalo_);
  emitirVEK();
}

void MaquinaDeEstados::venceTrama() {
  vaciar();
  acabarVEK(kErrorSinRespuesta);
}

void MaquinaDeEstados::venceRepetida() {
  if (modo_.unaVez || ++repetidas_ > kRepetidasMax) return venceTrama();
  envios_ = 1;
  repetida_ = true;
  estado_ = kEsperaACK;
  iniciarEspera(kEsperaRepetida);
  emitirVEK();
}

// --- frames ---

MaquinaDeEstados::Leido MaquinaDeEstados::leerTramas(bool aceptar) {
  const bool ancha = codigo_ > kCodigoAncho;
  tramas::LecturaVEK lectura = tramas::leerVEK(entrada_, ancha);
  if (!lectura.trama) return Leido::Nada;
  exterior_.escribir(QByteArray(1, tramas::kACK));
  auto& todas = lectura.previas;
  todas.push_back(std::move(*lectura.trama));
  const tramas::TramaVEK* respuesta = nullptr;
  for (auto& trama : todas) {
    if (ancha && trama.codigo != codigo_ &&
        tramas::estrecha(trama).codigo == tramas::kCodigoTransaccion)
      trama = tramas::estrecha(trama);
    if (trama.codigo == tramas::kCodigoTransaccion)
      entregarTransaccion(trama);
    else
      respuesta = &trama;
  }
  return respuesta ? atender(*respuesta, aceptar) : Leido::Transaccion;
}

// A transaction that the machine repeats because our acknowledgement was lost is one sale, not two.
void MaquinaDeEstados::entregarTransaccion(const tramas::TramaVEK& trama) {
  if (estado_ == kDescargando || trama == ultimaTransaccion_) return;
  ultimaTransaccion_ = trama;
  exterior_.transaccion(trama.addr, trama.datos);
}

MaquinaDeEstados::Leido MaquinaDeEstados::atender(const tramas::TramaVEK& trama, bool aceptar) {
  if (trama.secuencia == ultima_) {
    const Para para = exterior_.para();
    if (!enVuelo() || para == Para::VekCaptura) return Leido::Repetida;
    if (puedeSerDeOtra()) {
      separar_ = dudada_ = true;
      preguntarOtraVez();
      return Leido::Repetida;
    }
    estado_ == kRepetida ? prorrogar(kEsperaRepetida) : iniciarEspera(kEsperaRepetida);
    estado_ = kRepetida;
    return Leido::Repetida;
  }
  if (estado_ == kCallando) ultima_ = trama.secuencia, contestada_ = -1;
  if (!aceptar || !enVuelo()) return Leido::Pasada;
  // After 99 comes 0, or 1 from a machine that doesn't use 0. The first answer to a question may
  // come from another machine of the wire than the frame before it.
  const bool deLista = estado_ == kEsperaTrama || estado_ == kRepetida;
  const int tras = (ultima_ + 1) % 100;
  seguida_ = std::exchange(primera_, false) || !deLista || trama.secuencia == tras ||
             (tras == 0 && trama.secuencia == 1);
  ultima_ = trama.secuencia;
  contestada_ = preguntada_;
  // A list's client gets frames of every code: an unexpected one may be one of its records. A
  // refusal is one under any code, unless it may be owed to an earlier question.
  const bool deEsta = modo_.otroCodigo || trama.datos.startsWith("ERR");
  const bool posible =
      deLista || trama.codigo == codigo_ || (deEsta && !exterior_.deudas().debida(trama.codigo));
  if (!posible || !exterior_.encaja(trama.addr, trama.codigo, trama.datos)) return Leido::Pasada;
  // One extra number separates its count from the other machine's for good: counts that ran side by
  // side would meet at every question.
  if (std::exchange(separar_, false)) {
    preguntarOtraVez();
    return Leido::Pasada;
  }
  acabarVEK(0, trama.addr, trama.codigo, trama.datos);
  return Leido::Aceptada;
}

void MaquinaDeEstados::acabarVEK(int error, int addr, int codigo, const QByteArray& datos) {
  const bool recibo = error == 0 && (estado_ == kEsperaTrama || estado_ == kRepetida);
  if (error == 0 && estado_ != kEsperaACK)
    exterior_.deudas().contestada(preguntada_, codigo_, repetida_);
  else
    exterior_.deudas().callada(preguntada_, codigo_);
  reposar();
  recibo ? exterior_.reciboVEK(error, addr, codigo, datos)
         : exterior_.envioVEK(error, addr, codigo, datos);
}

}  // namespace tarvo::enlace
