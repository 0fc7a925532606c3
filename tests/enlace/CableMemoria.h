// A wire in memory, and its factory. The link owns its wire and destroys it; a test holds the
// wire's Mando, which outlives it. Time comes from the clock, so a virtual one drives everything.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "comm/cables/LinkSocket.h"
#include "core/tiempo/Reloj.h"

namespace tarvo::pruebas {

struct MandoCable {
  // Set by the test before the opening.
  bool seConfigura = true;
  int razonApertura = 0;
  int razonCierre = 0;
  bool abreSolo = true;                             // false: never reports the end of its opening
  bool cierraSolo = true;                           // false: never reports its closing
  int demora = 1;                                   // ms from the call to its outcome
  std::function<void(const QByteArray&)> alEnviar;  // a machine at the far end

  // Seen by the test.
  TipoAcceso device = TipoAcceso::Ninguno;
  QString nombre;
  enlace::ParametrosLinea parametros;
  std::vector<QByteArray> enviados;
  int vaciados = 0;
  bool destruido = false;
  int estado = 1;
  QByteArray buffer;
  enlace::LinkSocket::Oyente* oyente = nullptr;

  // Bytes from the far end, as one reception event.
  void entra(const QByteArray& bytes) {
    buffer += bytes;
    if (oyente) oyente->recepcion(buffer);
  }
  // The line drops.
  void cae(int razon) {
    estado = 1;
    if (oyente) oyente->cierre(razon);
  }
  QByteArray ultimo() const { return enviados.empty() ? QByteArray() : enviados.back(); }
};

class CableMemoria final : public enlace::LinkSocket {
 public:
  CableMemoria(Reloj& reloj, std::shared_ptr<MandoCable> mando)
      : mando_(std::move(mando)), timer_(reloj.temporizador([this] { vencer(); })) {}
  ~CableMemoria() override {
    mando_->destruido = true;
    mando_->oyente = nullptr;
    mando_->estado = 1;
  }
  bool configurar(const enlace::ParametrosLinea& parametros) override {
    mando_->parametros = parametros;
    return mando_->seConfigura;
  }
  void abrir(Oyente& oyente) override {
    mando_->oyente = &oyente;
    mando_->estado = 2;
    if (mando_->abreSolo) timer_->unaVez(mando_->demora);
  }
  void cerrar() override {
    cerrando_ = true;
    if (mando_->cierraSolo) timer_->unaVez(mando_->demora);
  }
  void enviar(const QByteArray& bytes) override {
    mando_->enviados.push_back(bytes);
    if (mando_->alEnviar) mando_->alEnviar(bytes);
  }
  void vaciarRecepcion() override {
    mando_->buffer.clear();
    ++mando_->vaciados;
  }
  int estado() const override { return mando_->estado; }

 private:
  void vencer() {
    const auto mando = mando_;
    const bool abriendo = mando->estado == 2;
    const int razon = cerrando_ ? enlace::kAbandonado : mando->razonApertura;
    if (!abriendo) return mando->cae(mando->razonCierre);
    mando->estado = razon == 0 ? 5 : 1;
    mando->oyente->finApertura(razon);
  }
  std::shared_ptr<MandoCable> mando_;
  std::unique_ptr<Temporizador> timer_;
  bool cerrando_ = false;
};

// `preparar` may change the behaviour of each new wire. A connector exists if `razones` has no
// reason against it.
class FabricaMemoria final : public enlace::FabricaEnlaces {
 public:
  explicit FabricaMemoria(Reloj& reloj) : reloj_(reloj) {}
  std::unique_ptr<enlace::LinkSocket> crear(TipoAcceso device) override {
    auto mando = nuevo();
    mando->device = device;
    return std::make_unique<CableMemoria>(reloj_, mando);
  }
  std::unique_ptr<enlace::LinkSocket> crearConector(const QString& nombre, int& razon) override {
    const auto it = razones.find(nombre);
    razon = it == razones.end() ? 0 : it->second;
    if (razon != 0) return nullptr;
    auto mando = nuevo();
    mando->nombre = nombre;
    return std::make_unique<CableMemoria>(reloj_, mando);
  }
  MandoCable& cable() const { return *cables.back(); }

  std::vector<std::shared_ptr<MandoCable>> cables;
  std::function<void(MandoCable&)> preparar;
  std::map<QString, int> razones;

 private:
  std::shared_ptr<MandoCable> nuevo() {
    cables.push_back(std::make_shared<MandoCable>());
    if (preparar) preparar(*cables.back());
    return cables.back();
  }
  Reloj& reloj_;
};

}  // namespace tarvo::pruebas
