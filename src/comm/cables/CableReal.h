// The common part of real wires: their outcomes reach the link from the event loop, never from
// inside a call, and none comes after the closing. A wire's access is free again as soon as it is
// closed.
#pragma once

#include <QObject>
#include <functional>
#include <map>

#include "comm/cables/LinkSocket.h"
#include "core/tiempo/Reloj.h"

namespace tarvo::enlace {

// The accesses (ports, hosts, sockets) held by open wires, by their name on this computer.
class Ocupados {
 public:
  // Null if another wire holds it. It is held for as long as the returned value lives.
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

  // The operations of each kind of wire. empezar() begins the opening and returns a reason if that
  // fails at once; terminar() begins an orderly closing and calls cerrado() at its end; cortar()
  // releases everything now.
  virtual QString acceso() const = 0;
  virtual int razonOcupado() const { return kEnUso; }
  virtual int empezar() = 0;
  virtual void terminar() = 0;
  virtual void cortar() = 0;

  // The outcomes it reports.
  void abierto();           // the opening succeeded
  void fallado(int razon);  // the opening failed, or the open line dropped
  void cerrado(int razon);  // the requested closing is over
  void llegado(const QByteArray& bytes);
  void portadora(bool sube);
  // Begins the closing of a socket with nothing left to send, which is over when the other end has
  // closed as well, or has had two seconds: a machine that takes one connection at a time drops
  // the next one if it comes while the machine hasn't noticed the end of this one. False if it
  // isn't connected.
  bool despedirse(qintptr socket);
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
  bool avisado_ = false;  // its end has been reported
  QByteArray buffer_;
  std::unique_ptr<Temporizador> plazo_;
  QObject contexto_;  // reports not yet delivered die with it
};

}  // namespace tarvo::enlace
