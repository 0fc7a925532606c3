#include "comm/cables/CableModem.h"

#include <QFileInfo>
#include <algorithm>

#include "comm/cables/Parametros.h"

namespace tarvo::enlace {

namespace {

constexpr int kMsOrden = 2000, kMsPausa = 2000, kMsMarcarMin = 1000, kMsMarcar = 60000;
constexpr int kMsSenales = 300, kMsDTR = 600, kMsGuarda = 1100, kMsVigia = 500;
constexpr int kIntentosMax = 100, kMsColgarMax = 120000, kColaMax = 16;

}  // namespace

CableModem::CableModem(Reloj& reloj, std::shared_ptr<Ocupados> ocupados, RutaDePuerto rutaDe)
    : CableReal(reloj, std::move(ocupados)),
      rutaDe_(std::move(rutaDe)),
      vigia_(reloj.temporizador([this] { vigilar(); })),
      puerto_([this](const QByteArray& bytes) { leer(bytes); },
              [this] { fallado(kPuertoOcupado); }) {}

bool CableModem::configurar(const ParametrosLinea& parametros) {
  p_ = parametros;
  ruta_ = rutaDe_(p_.puerto);
  guion_ = partirGuion(p_.guion);
  return !ruta_.isEmpty();
}

QString CableModem::acceso() const {
  const QString real = QFileInfo(ruta_).canonicalFilePath();
  return QStringLiteral("serie:") + (real.isEmpty() ? ruta_ : real);
}

int CableModem::empezar() {
  const int razon = puerto_.abrir(ruta_, p_.rs232);
  if (razon != kBien) return razon;
  puerto_.falta(p_.controlLinea) ? ir(Paso::Senales, kMsSenales) : siguienteOrden();
  return kBien;
}

void CableModem::ir(Paso paso, int ms) {
  paso_ = paso;
  plazo(ms);
}

void CableModem::orden(const QByteArray& texto, Paso paso, int ms) {
  entrada_.clear();
  puerto_.escribir(texto + '\r');
  ir(paso, ms);
}

// --- initialisation and dialling ---

void CableModem::siguienteOrden() {
  if (indice_ >= guion_.size()) return marcar();
  orden(guion_[indice_].orden, Paso::Guion, kMsOrden);
}

void CableModem::marcar() {
  const int espera = p_.espera > 0 ? std::max(esperaEnMs(p_.espera), kMsMarcarMin) : kMsMarcar;
  orden((p_.prefijo + p_.telefono).toLatin1(), Paso::Marca, espera);
}

void CableModem::otroIntento(int razon) {
  if (++intento_ >= std::clamp(p_.intentos, 1, kIntentosMax)) return fallado(razon);
  ir(Paso::Pausa, kMsPausa);
}

void CableModem::conectar() {
  paso_ = Paso::EnLinea;
  hayPortadora_ = true;
  vigia_->cada(kMsVigia);
  portadora(true);
  abierto();
  llegado(std::exchange(entrada_, {}));
}

void CableModem::responde(RespuestaModem respuesta) {
  using enum RespuestaModem;
  if (respuesta == Ninguna) return;
  switch (paso_) {
    case Paso::Guion:
      if (guion_[indice_].exige && respuesta != Bien) return fallado(kModemMudo);
      ++indice_;
      return siguienteOrden();
    case Paso::Marca:
      if (respuesta == Conectado) return conectar();
      if (respuesta == Bien) return;  // to an earlier order
      return otroIntento(respuesta == Error ? kModemMudo : kSinRespuesta);
    case Paso::CuelgaATH:
      return cerrado(kBien);
    default:
      return;
  }
}

void CableModem::vencePlazo() {
  switch (paso_) {
    case Paso::Senales:
      return puerto_.falta(p_.controlLinea) ? fallado(kSinCtsDsr) : siguienteOrden();
    case Paso::Guion:
      if (guion_[indice_].exige) return fallado(kModemMudo);
      ++indice_;
      return siguienteOrden();
    case Paso::Marca:
      puerto_.escribir("\r");  // any sign stops a modem that is still dialling
      return otroIntento(oido_ ? kSinRespuesta : kModemMudo);
    case Paso::Pausa:
      return marcar();
    case Paso::CuelgaDTR:
      if (portadoraCaida()) return cerrado(kBien);
      puerto_.ponerDTR(true);
      return ir(Paso::CuelgaGuarda, kMsGuarda);
    case Paso::CuelgaGuarda:
      puerto_.escribir("+++");
      return ir(Paso::CuelgaEscape, kMsGuarda);
    case Paso::CuelgaEscape:
      return orden("ATH", Paso::CuelgaATH, std::clamp(p_.esperaColgar, kMsOrden, kMsColgarMax));
    case Paso::CuelgaATH:
      return cerrado(kModemMudo);
    case Paso::EnLinea:
      return;
  }
}

// --- what comes in ---

void CableModem::leer(const QByteArray& bytes) {
  oido_ = true;
  if (paso_ == Paso::EnLinea) return leerEnLinea(bytes);
  entrada_ += bytes;
  leerLineas();
}

// Both sending an order and connecting empty the buffer read here.
void CableModem::leerLineas() {
  while (paso_ != Paso::EnLinea && estado() != kCerrado) {
    const auto linea = cortarLinea(entrada_);
    if (!linea) break;
    responde(interpretar(*linea));
  }
}

// A modem without a carrier line reports the end in words, in the middle of the data.
void CableModem::leerEnLinea(const QByteArray& bytes) {
  cola_ = (cola_ + bytes).right(kColaMax + bytes.size());
  const bool fin = cola_.contains("\nNO CARRIER\r") || cola_.contains("\rNO CARRIER\r");
  cola_ = cola_.right(kColaMax);
  llegado(bytes);
  if (fin) perderPortadora();
}

// --- carrier and hang-up ---

bool CableModem::portadoraCaida() {
  const auto lineas = puerto_.senales();
  return lineas && !lineas->testFlag(QSerialPort::DataCarrierDetectSignal);
}

// A carrier line that is down means something only if it has been up before.
void CableModem::vigilar() {
  if (!puerto_.senales()) return vigia_->parar();
  if (!portadoraCaida())
    vistaDCD_ = true;
  else if (vistaDCD_)
    perderPortadora();
}

void CableModem::perderPortadora() {
  if (!std::exchange(hayPortadora_, false)) return;
  vigia_->parar();
  portadora(false);
}

void CableModem::terminar() {
  vigia_->parar();
  if (!hayPortadora_) return cerrado(kBien);
  puerto_.ponerDTR(false);
  ir(Paso::CuelgaDTR, kMsDTR);
}

void CableModem::cortar() {
  vigia_->parar();
  if (paso_ == Paso::Marca) puerto_.escribir("\r");
  puerto_.ponerDTR(false);
  puerto_.cerrar();
}

void CableModem::enviar(const QByteArray& bytes) {
  if (estado() == kConectado) puerto_.escribir(bytes);
}

}  // namespace tarvo::enlace
