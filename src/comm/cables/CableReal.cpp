#include "comm/cables/CableReal.h"

#include <sys/socket.h>

#include <QMetaObject>

namespace tarvo::enlace {

std::shared_ptr<void> Ocupados::tomar(const QString& acceso) {
  auto& tomado = tomados_[acceso];
  if (!tomado.expired()) return nullptr;
  const auto uso = std::make_shared<char>();
  tomado = uso;
  return uso;
}

CableReal::CableReal(Reloj& reloj, std::shared_ptr<Ocupados> ocupados)
    : reloj_(reloj),
      ocupados_(std::move(ocupados)),
      plazo_(reloj.temporizador([this] { vencePlazo(); })) {}

void CableReal::luego(std::function<void(Oyente&)> aviso) {
  QMetaObject::invokeMethod(
      &contexto_, [this, aviso = std::move(aviso)] { aviso(*oyente_); }, Qt::QueuedConnection);
}

void CableReal::abrir(Oyente& oyente) {
  oyente_ = &oyente;
  estado_ = kAbriendo;
  uso_ = ocupados_->tomar(acceso());
  const int razon = uso_ ? empezar() : razonOcupado();
  if (razon != kBien) fallado(razon);
}

// An abandoned opening, like a closing, may take time to leave the line as it was.
void CableReal::cerrar() {
  if (!oyente_ || avisado_ || estado_ == kCerrando) return;
  const bool abriendo = estado_ == kAbriendo;
  if (abriendo) return fallado(kAbandonado);
  estado_ = kCerrando;
  terminar();
}

void CableReal::abierto() {
  if (estado_ != kAbriendo) return;
  sinPlazo();
  estado_ = kConectado;
  luego([](Oyente& o) { o.finApertura(kBien); });
}

void CableReal::fallado(int razon) {
  if (avisado_) return;
  if (estado_ == kCerrando) return cerrado(kBien);
  const bool abriendo = estado_ == kAbriendo;
  avisado_ = true;
  sinPlazo();
  cortar();
  uso_.reset();
  estado_ = kCerrado;
  luego([=](Oyente& o) { abriendo ? o.finApertura(razon) : o.cierre(razon); });
}

void CableReal::cerrado(int razon) {
  if (avisado_ || estado_ != kCerrando) return;
  avisado_ = true;
  sinPlazo();
  cortar();
  uso_.reset();
  estado_ = kCerrado;
  luego([=](Oyente& o) { o.cierre(razon); });
}

bool CableReal::despedirse(qintptr socket) {
  constexpr int kMsDespedida = 2000;
  if (socket < 0 || ::shutdown(static_cast<int>(socket), SHUT_WR) != 0) return false;
  plazo(kMsDespedida);
  return true;
}

// Called from the device's own signal, so the link may be called at once.
void CableReal::llegado(const QByteArray& bytes) {
  if (estado_ != kConectado || bytes.isEmpty()) return;
  buffer_ += bytes;
  oyente_->recepcion(buffer_);
}

void CableReal::portadora(bool sube) {
  if (!sube && estado_ == kConectado) estado_ = kSinPortadora;
  luego([=](Oyente& o) { o.linea(sube ? 5 : 6); });
}

}  // namespace tarvo::enlace
