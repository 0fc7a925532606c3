#include "comm/exploracion/Sondeo.h"

#include <algorithm>

#include "comm/cables/Hayes.h"
#include "comm/maquinas/Balanzas.h"
#include "comm/tramas/Trama.h"

namespace tarvo::exploracion {

using maquinas::kPreguntaNodal, maquinas::kPreguntaVek;

namespace {

const QByteArray kCadenaModem = QByteArrayLiteral("AT&FE0V0Q0Y1L3\r"),
                 kAT = QByteArrayLiteral("AT\r");
const QByteArray kBien = QByteArrayLiteral("0");
constexpr int kMsPrimera = 1000, kMsRespuesta = 500;
constexpr int kMaxMalos = 10;          // answered in one probe
constexpr qsizetype kMaxPuestos = 99;  // an address has two digits

// The line up to its CR, removed from the buffer with it; nothing while it is incomplete.
std::optional<QByteArray> cortar(QByteArray& buffer, char fin) {
  const qsizetype n = buffer.indexOf(fin);
  if (n < 0) return std::nullopt;
  const QByteArray pieza = buffer.left(n + 1);
  buffer.remove(0, n + 1);
  return pieza;
}

}  // namespace

Sondeo::Sondeo(Entorno entorno)
    : e_(std::move(entorno)), tim_(e_.reloj.temporizador([this] { vencer(); })) {}

void Sondeo::empezar(bool conModem) {
  conModem ? mandarModem(kCadenaModem, Fase::Modem1, kMsPrimera) : siguienteVek();
}

void Sondeo::parar() {
  tim_->parar();
  fase_ = Fase::Fin;
}

void Sondeo::cortado() {
  if (fase_ == Fase::Fin) return;
  h_.grupos.empty() ? acabar(ResultadoCanal::Cable, Motivo::Cortada) : acabarSinMas();
}

void Sondeo::vencer() {
  switch (fase_) {
    case Fase::Modem1:
      return mandarModem(kCadenaModem, Fase::Modem2, kMsRespuesta);
    case Fase::Modem2:
    case Fase::Vek:
      return siguienteVek();
    case Fase::ModemAT:
      return acabar(ResultadoCanal::Cable, Motivo::ModemCallado);
    case Fase::Nodal:
      return siguienteNodal();
    case Fase::NodalEspera:
    case Fase::NodalRespuesta:
      h_.sonda = sonda_;
      return acabar(ResultadoCanal::Cable, Motivo::NodoAMedias);
    case Fase::Inicio:
    case Fase::Fin:
      return;
  }
}

// A line may answer from within a sending, so it is read in one place at a time.
void Sondeo::recibir(const QByteArray& bytes) {
  if (fase_ == Fase::Inicio || fase_ == Fase::Fin || bytes.isEmpty()) return;
  oido_ = true;
  entrada_ += bytes;
  if (entrada_.size() > tramas::kMaxPendiente) entrada_.clear();
  if (leyendo_) return;
  leyendo_ = true;
  leer();
  leyendo_ = false;
}

void Sondeo::leer() {
  for (bool hay = true; hay;) {
    switch (fase_) {
      case Fase::Modem2:
      case Fase::ModemAT:
        hay = leerModem();
        break;
      case Fase::Vek:
        hay = leerVek();
        break;
      case Fase::Nodal:
      case Fase::NodalEspera:
      case Fase::NodalRespuesta:
        hay = leerNodal();
        break;
      case Fase::Inicio:
      case Fase::Modem1:
      case Fase::Fin:
        hay = false;
    }
  }
}

// --- the modem ---------------------------------------------------------------------------------

// What came before an order is no answer to it.
void Sondeo::mandarModem(const QByteArray& orden, Fase fase, int ms) {
  fase_ = fase;
  entrada_.clear();
  tim_->unaVez(ms);
  mandar(orden);
}

bool Sondeo::leerModem() {
  const auto linea = cortar(entrada_, tramas::kCR);
  if (!linea) return false;
  if (linea->trimmed() != kBien) {
    const bool deModem = enlace::interpretar(linea->trimmed()) != enlace::RespuestaModem::Ninguna;
    eco_ = linea->endsWith(ultimo_);
    acabar(ResultadoCanal::Cable, deModem ? Motivo::OtroModem : loOido());
  } else if (fase_ == Fase::Modem2) {
    mandarModem(kAT, Fase::ModemAT, kMsRespuesta);
  } else {
    acabar(ResultadoCanal::Modem, Motivo::Silencio);
  }
  return true;
}

// --- VEK ---------------------------------------------------------------------------------------

void Sondeo::siguienteVek() {
  if (fase_ != Fase::Vek) {
    entrada_.clear();
    secuencia_ = e_.azar.entero(0, 99);
    return preguntarVek(0);
  }
  if (sonda_ < kUltimaSonda) return preguntarVek(sonda_ + 1);
  h_.grupos.empty() ? siguienteNodal() : acabarSinMas();
}

void Sondeo::preguntarVek(int estacion) {
  fase_ = Fase::Vek;
  sonda_ = estacion;
  malos_ = 0;
  secuencia_ = (secuencia_ + 1) % 100;
  tim_->unaVez(kMsRespuesta);
  mandar(tramas::construirVEK(secuencia_, tramas::cuerpoVEK(0, kPreguntaVek, {}), estacion));
}

bool Sondeo::leerVek() {
  const auto pieza = cortar(entrada_, tramas::kETX);
  if (pieza) deEstacion(*pieza);
  return pieza.has_value();
}

// An answer of another station is late or strange: it is acknowledged, and the time runs on.
void Sondeo::deEstacion(const QByteArray& pieza) {
  const auto r = tramas::leerRespuestaVEK(pieza);
  if (!r || r->trama.codigo != kPreguntaVek || r->trama.datos.size() > kMaxPuestos)
    return malo(pieza);
  if (r->estacion != sonda_) return confirmar(tramas::kACK);
  mandar(QByteArray(1, tramas::kACK));
  anadir(ResultadoCanal::Vek, r->trama.datos);
  siguienteVek();
}

// --- NODAL -------------------------------------------------------------------------------------

void Sondeo::siguienteNodal() {
  if (fase_ != Fase::Nodal) {
    entrada_.clear();
    secuencia_ = e_.azar.entero(0, 255);
    return preguntarNodal(1);
  }
  if (sonda_ < kUltimaSonda) return preguntarNodal(sonda_ + 1);
  h_.grupos.empty() ? acabar(ResultadoCanal::Cable, loOido()) : acabarSinMas();
}

void Sondeo::preguntarNodal(int nodo) {
  fase_ = Fase::Nodal;
  sonda_ = nodo;
  malos_ = 0;
  pausa_ = false;
  tim_->unaVez(kMsRespuesta);
  mandarNodal(kPreguntaNodal);
}

void Sondeo::mandarNodal(int codigo) {
  secuencia_ = (secuencia_ + 1) % 256;
  mandar(tramas::construirNODAL({e_.nodoPropio, sonda_, secuencia_, codigo, {}}));
}

bool Sondeo::leerNodal() {
  const auto linea = cortar(entrada_, tramas::kCR);
  if (linea) deNodo(*linea);
  return linea.has_value();
}

bool Sondeo::vale(const tramas::TramaNODAL& t) const {
  const int esperado = fase_ == Fase::Nodal         ? tramas::kNodalAck
                       : fase_ == Fase::NodalEspera ? tramas::kNodalEspera
                                                    : tramas::kNodalRechazo;
  return t.origen == sonda_ && t.destino == e_.nodoPropio && t.codigo == esperado && !pausa_ &&
         t.datos.size() <= kMaxPuestos;
}

// The answer has the code of a rejection, as the wait frame comes before it.
void Sondeo::deNodo(const QByteArray& linea) {
  QByteArray trama = linea.mid(std::max<qsizetype>(linea.lastIndexOf(tramas::kSTX), 0));
  const auto t = tramas::leerNODAL(trama).trama;
  if (!t || !vale(*t)) return malo(linea);
  tim_->unaVez(kMsRespuesta);
  if (fase_ == Fase::Nodal) {
    fase_ = Fase::NodalEspera;
    return;
  }
  const bool entera = fase_ == Fase::NodalRespuesta;
  fase_ = entera ? Fase::Nodal : Fase::NodalRespuesta;
  pausa_ = entera;
  if (entera) anadir(ResultadoCanal::Nodal, t->datos);
  mandarNodal(tramas::kNodalAck);
  if (entera && sonda_ == kUltimaSonda) acabarSinMas();
}

// --- both --------------------------------------------------------------------------------------

void Sondeo::mandar(const QByteArray& bytes) {
  if (bytes.size() > 1) ultimo_ = bytes;
  e_.enviar(bytes);
}

void Sondeo::malo(const QByteArray& pieza) {
  eco_ |= pieza.endsWith(ultimo_);
  confirmar(tramas::kNAK);
}

// To what isn't the awaited answer: a line that answers everything would never end.
void Sondeo::confirmar(char confirmacion) {
  if (++malos_ <= kMaxMalos) mandar(QByteArray(1, confirmacion));
}

void Sondeo::anadir(ResultadoCanal resultado, const QByteArray& datos) {
  h_.resultado = resultado;
  GrupoHallado g{sonda_, {}};
  for (const char c : datos) g.balanzas.push_back(c == '1');
  h_.grupos.push_back(std::move(g));
}

Motivo Sondeo::loOido() const {
  if (eco_) return Motivo::Eco;
  return oido_ ? Motivo::Ruido : Motivo::Silencio;
}

void Sondeo::acabar(ResultadoCanal resultado, Motivo motivo) {
  h_.resultado = resultado;
  h_.motivo = motivo;
  h_.grupos.clear();
  acabarSinMas();
}

void Sondeo::acabarSinMas() {
  parar();
  e_.alAcabar();
}

}  // namespace tarvo::exploracion
