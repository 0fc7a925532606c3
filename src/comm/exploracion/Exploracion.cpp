#include "comm/exploracion/Exploracion.h"

#include <utility>

namespace tarvo::exploracion {

namespace {

// For wires that never report the end of an opening or a closing. Every wire has shorter ones.
constexpr int kMsApertura = 60000, kMsCierre = 10000;

}  // namespace

Exploracion::Exploracion(Reloj& reloj, Azar& azar, enlace::FabricaEnlaces& fabrica, int nodoPropio)
    : reloj_(reloj),
      azar_(azar),
      fabrica_(fabrica),
      nodoPropio_(nodoPropio),
      plazo_(reloj.temporizador([this] { vencer(); })) {}

Exploracion::~Exploracion() {
  if (sondeo_) sondeo_->parar();
}

void Exploracion::empezar(std::vector<Acceso> accesos) {
  accesos_ = std::move(accesos);
  hallazgos_.clear();
  indice_ = 0;
  parada_ = false;
  continuar();
}

void Exploracion::parar() {
  if (estado_ == Estado::Reposo || std::exchange(parada_, true)) return;
  if (sondeo_) sondeo_->parar();
  if (estado_ == Estado::Abriendo || estado_ == Estado::Hablando) cerrar();
}

const Acceso* Exploracion::enCurso() const {
  return estado_ == Estado::Reposo || indice_ >= accesos_.size() ? nullptr : &accesos_[indice_];
}

// A wire isn't destroyed inside its own event.
void Exploracion::continuar() {
  estado_ = Estado::Siguiente;
  plazo_->unaVez(0);
}

void Exploracion::vencer() {
  switch (estado_) {
    case Estado::Siguiente:
      return siguiente();
    case Estado::Abriendo:
      return finApertura(enlace::kSinRespuesta);
    case Estado::Cerrando:
      return continuar();
    case Estado::Reposo:
    case Estado::Hablando:
      return;
  }
}

void Exploracion::siguiente() {
  sondeo_.reset();
  cable_.reset();
  if (parada_ || indice_ >= accesos_.size()) {
    estado_ = Estado::Reposo;
    if (alAcabar) alAcabar();
    return;
  }
  estado_ = Estado::Abriendo;
  const enlace::ParametrosLinea& linea = accesos_[indice_].linea;
  cable_ = fabrica_.crear(linea.device);
  if (!cable_->configurar(linea)) return finApertura(enlace::kPuertoOcupado);
  plazo_->unaVez(kMsApertura);
  cable_->abrir(*this);
}

void Exploracion::finApertura(int razon) {
  if (estado_ == Estado::Cerrando) return continuar();
  if (estado_ != Estado::Abriendo) return;
  plazo_->parar();
  if (razon != enlace::kBien) {
    const bool sinCts = razon == enlace::kSinCtsDsr;
    hallado(
        {.resultado = sinCts ? ResultadoCanal::SinCts : ResultadoCanal::SinPuerto, .razon = razon});
    return continuar();
  }
  estado_ = Estado::Hablando;
  sondeo_ = std::make_unique<Sondeo>(
      Sondeo::Entorno{.reloj = reloj_,
                      .azar = azar_,
                      .nodoPropio = nodoPropio_,
                      .enviar = [this](const QByteArray& bytes) { cable_->enviar(bytes); },
                      .alAcabar = [this] { hallado(sondeo_->hallazgo()), cerrar(); }});
  cable_->vaciarRecepcion();
  sondeo_->empezar(accesos_[indice_].clase == Acceso::Clase::Serie);
}

void Exploracion::recepcion(QByteArray& buffer) {
  const QByteArray bytes = std::exchange(buffer, {});
  if (sondeo_ && estado_ == Estado::Hablando) sondeo_->recibir(bytes);
}

void Exploracion::cierre(int) {
  if (estado_ == Estado::Cerrando) return continuar();
  if (estado_ != Estado::Hablando) return;
  // Nothing is left to close.
  estado_ = Estado::Cerrando;
  sondeo_->cortado();
  continuar();
}

// Also of an opening, which then ends as one that was given up.
void Exploracion::cerrar() {
  if (estado_ == Estado::Cerrando) return;
  estado_ = Estado::Cerrando;
  plazo_->unaVez(kMsCierre);
  cable_->cerrar();
}

void Exploracion::hallado(Hallazgo h) {
  h.acceso = accesos_[indice_++];
  hallazgos_.push_back(std::move(h));
  if (alHallar) alHallar(hallazgos_.back());
}

}  // namespace tarvo::exploracion
