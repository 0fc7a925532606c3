// The traffic on the wires, cut into frames and kept for viewing: the last ones of each channel.
// While an Escucha exists it hears every link; without one, listening costs a link nothing.
#pragma once

#include <QByteArray>
#include <deque>
#include <functional>
#include <map>

#include "comm/enlace/comtvIP.h"

namespace tarvo::enlace {

struct Paso {
  qint64 numero = 0;  // counts from 1 over all channels
  int hora = 0;       // ms since midnight
  int canal = 0;
  Sentido sentido = Sentido::Sale;
  bool nodal = false;
  bool ancha = false;  // VEK: a four-digit code in place of address and code
  QByteArray bytes;    // one frame, one acknowledgement, or noise
};

class Escucha {
 public:
  static constexpr size_t kPorCanal = 2000;

  // Replaces the previous listener of these links. REQUIRES that both outlive it.
  Escucha(Enlaces& enlaces, Reloj& reloj, size_t porCanal = kPorCanal);
  ~Escucha();
  Escucha(const Escucha&) = delete;

  qint64 ultimo() const { return ultimo_; }
  // Those after number `desde`, oldest first; `canal` -1 for all. REQUIRES that `cada` keeps no
  // reference to them.
  void recorrer(qint64 desde, int canal, const std::function<void(const Paso&)>& cada) const;
  void olvidar();

 private:
  // An incomplete piece of a channel.
  struct Hilo {
    Sentido sentido = Sentido::Sale;
    bool nodal = false;
    bool ancha = false;  // the last frame sent has a four-digit code
    QByteArray resto;
    std::deque<Paso> pasos;
  };
  void pasar(int canal, Sentido sentido, bool nodal, const QByteArray& bytes);
  void partir(int canal, Hilo& hilo);
  void anotar(int canal, Hilo& hilo, const QByteArray& bytes);
  int hora();

  Enlaces& enlaces_;
  Reloj& reloj_;
  const size_t porCanal_;
  qint64 ultimo_ = 0;
  qint64 base_ = 0;  // wall clock minus monotonic clock, ms
  std::map<int, Hilo> hilos_;
};

}  // namespace tarvo::enlace
