// What the real wires share: their outcomes reach the link from the event loop, never from inside a
// call, and none comes after the closing. The access that a wire holds is free again as soon as it
// is closed.
#pragma once

#include <QObject>
#include <functional>
#include <map>

#include "comm/cables/LinkSocket.h"
#include "core/tiempo/Reloj.h"

namespace tarvo::enlace {

// Which accesses (ports, hosts, sockets) are held by an open wire, by their name on this machine.
class Ocupados {
 public:
  // Null when another wire holds it. It is held for as long as the value lives.
  std::shared_ptr<void> tomar(const QString& acceso);

 private:
  std::map<QString, std::weak_ptr<void>> tomados_;
};

class CableReal : public LinkSocket {
 public:
  CableReal(Reloj& reloj, std::shared_ptr<Ocupados> ocupados);
  void abrir(Oyente& oyente) final;
  void cerrar() final;
  void vaciarRecepcion() final { buffer_.clear(); }
  int estado() const final { return estado_; }

 protected:
  enum Estado : int {
    kCerrado = 1,
    kAbriendo = 2,
    kCerrando = 3,
    kSinPortadora = 4,
    kConectado = 5
  };

  // What a kind of wire does. empezar() begins the opening and answers a reason when that fails at
  // once; terminar() begins an orderly closing and calls cerrado() in the end; cortar() lets go of
  // everything now.
  virtual QString acceso() const = 0;
  virtual int razonOcupado() const { return kEnUso; }
  virtual int empezar() = 0;
  virtual void terminar() = 0;
  virtual void cortar() = 0;

  // What it tells.
  void abierto();           // the opening succeeded
  void fallado(int razon);  // the opening failed, or the open line dropped
  void cerrado(int razon);  // the closing that was asked for is over
  void llegado(const QByteArray& bytes);
  void portadora(bool sube);
  void plazo(int ms) { plazo_->unaVez(ms); }
  void sinPlazo() { plazo_->parar(); }
  virtual void vencePlazo() = 0;

  Reloj& reloj_;

 private:
  void luego(std::function<void(Oyente&)> aviso);

  std::shared_ptr<Ocupados> ocupados_;
  std::shared_ptr<void> uso_;
  Oyente* oyente_ = nullptr;
  int estado_ = kCerrado;
  bool avisado_ = false;  // its end has been told
  QByteArray buffer_;
  std::unique_ptr<Temporizador> plazo_;
  QObject contexto_;  // what is still to be told dies with it
};

}  // namespace tarvo::enlace
