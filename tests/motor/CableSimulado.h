// Wires that end in machine models. A wire is identified by its configuration: "cable 1" by its
// port, a telephone number, a host or the name of a connector.
#pragma once

#include <map>
#include <memory>

#include "comm/cables/LinkSocket.h"
#include "core/tiempo/Reloj.h"
#include "simulador/Cable.h"

namespace tarvo::prueba {

class CableSimulado final : public enlace::LinkSocket {
 public:
  using Cables = std::map<QString, simulador::Cable>;
  CableSimulado(Reloj& reloj, Cables& cables, const bool& mudo, TipoAcceso device,
                QString nombre = {})
      : reloj_(reloj),
        cables_(cables),
        mudo_(mudo),
        device_(device),
        nombre_(std::move(nombre)),
        timer_(reloj.temporizador([this] { vencer(); })) {}

  bool configurar(const enlace::ParametrosLinea& p) override {
    if (nombre_.isEmpty())
      nombre_ = device_ == TipoAcceso::Modem   ? p.telefono
                : device_ == TipoAcceso::TcpIp ? p.host
                                               : QStringLiteral("cable %1").arg(p.puerto);
    return true;
  }
  void abrir(Oyente& oyente) override {
    oyente_ = &oyente;
    citar([this] { conectar(); });
  }
  void cerrar() override {
    citar([this] {
      const bool abriendo = estado_ != 5;
      soltar();
      abriendo ? oyente_->finApertura(enlace::kInterrumpido) : oyente_->cierre(0);
    });
  }
  void enviar(const QByteArray& bytes) override {
    if (tubo_) tubo_->enviar(bytes);
  }
  void vaciarRecepcion() override { buffer_.clear(); }
  int estado() const override { return estado_; }

 private:
  void citar(std::function<void()> que) {
    que_ = std::move(que);
    if (!mudo_) timer_->unaVez(1);
  }
  void vencer() {
    if (const auto que = std::exchange(que_, nullptr)) que();
  }
  void conectar() {
    const auto it = cables_.find(nombre_);
    if (it == cables_.end()) return oyente_->finApertura(enlace::kSinRespuesta);
    tubo_ = std::make_unique<simulador::Tubo>(it->second, reloj_);
    const bool bien = tubo_->abrir(
        [this](const QByteArray& bytes) {
          buffer_ += bytes;
          oyente_->recepcion(buffer_);
        },
        [this](bool limpio) {
          estado_ = 1;
          caida_ = limpio ? 0 : int{enlace::kCaidaTcp};
          citar([this] {
            soltar();
            oyente_->cierre(caida_);
          });
        });
    if (!bien) {
      tubo_.reset();
      return oyente_->finApertura(enlace::kSinRespuesta);
    }
    estado_ = 5;
    if (device_ == TipoAcceso::Modem) oyente_->linea(5);
    oyente_->finApertura(0);
  }
  void soltar() {
    estado_ = 1;
    if (tubo_) tubo_->cerrar();
    tubo_.reset();
  }

  Reloj& reloj_;
  Cables& cables_;
  const bool& mudo_;
  TipoAcceso device_;
  QString nombre_;
  std::unique_ptr<Temporizador> timer_;
  std::function<void()> que_;
  std::unique_ptr<simulador::Tubo> tubo_;
  Oyente* oyente_ = nullptr;
  QByteArray buffer_;
  int estado_ = 1, caida_ = 0;
};

class FabricaSimulada final : public enlace::FabricaEnlaces {
 public:
  explicit FabricaSimulada(Reloj& reloj) : reloj_(reloj) {}
  std::unique_ptr<enlace::LinkSocket> crear(TipoAcceso device) override {
    ++aperturas;
    return std::make_unique<CableSimulado>(reloj_, cables, mudos, device);
  }
  std::unique_ptr<enlace::LinkSocket> crearConector(const QString& nombre, int& razon) override {
    ++aperturas;
    razon = cables.contains(nombre) ? 0 : int{enlace::kSinNombre};
    return razon != 0 ? nullptr
                      : std::make_unique<CableSimulado>(reloj_, cables, mudos, TipoAcceso::Conector,
                                                        nombre);
  }
  CableSimulado::Cables cables;
  int aperturas = 0;
  bool mudos = false;  // wires that never report the end of an opening or a closing

 private:
  Reloj& reloj_;
};

}  // namespace tarvo::prueba
