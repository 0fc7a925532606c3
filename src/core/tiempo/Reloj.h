// Time and chance, passed to everything that needs them, so that a night can be replayed.
//
// There are two times. ahora() is the wall clock of the shop, which may jump (daylight saving, a
// correction). monotono() only goes forward; every duration, time-out and countdown uses it.
#pragma once

#include <functional>
#include <memory>
#include <random>

#include "core/valores/Fecha.h"

namespace tarvo {

// A timer on the event loop's thread. It fires once (unaVez) or again and again (cada) until
// parar(). A handler may destroy, stop or restart the timer. Destroying it stops it.
class Temporizador {
 public:
  virtual ~Temporizador() = default;
  virtual void unaVez(int ms) = 0;
  virtual void cada(int ms) = 0;
  virtual void parar() = 0;
  virtual bool activo() const = 0;
  virtual int intervalo() const = 0;  // ms of the last unaVez or cada
};

class Reloj {
 public:
  virtual ~Reloj() = default;
  virtual Fecha ahora() const = 0;      // local wall clock, whole seconds
  virtual qint64 monotono() const = 0;  // ms
  virtual std::unique_ptr<Temporizador> temporizador(std::function<void()> alVencer) = 0;
};

// The real clock, on Qt's event loop.
class RelojReal final : public Reloj {
 public:
  RelojReal();
  Fecha ahora() const override;
  qint64 monotono() const override;
  std::unique_ptr<Temporizador> temporizador(std::function<void()> alVencer) override;

 private:
  qint64 inicio_;
};

// A clock that moves only when told. Timers due at the same instant fire in the order in which they
// were started.
class RelojVirtual final : public Reloj {
 public:
  explicit RelojVirtual(Fecha inicio);
  ~RelojVirtual() override;
  Fecha ahora() const override;
  qint64 monotono() const override;
  std::unique_ptr<Temporizador> temporizador(std::function<void()> alVencer) override;

  // Jumps to the next timer and fires it; false if none is running.
  bool siguiente();
  // Fires everything due within the next `ms`, and advances the clock by that much.
  void avanzar(qint64 ms);
  // Moves only the wall clock, as a correction or daylight saving does.
  void saltarPared(double dias);

 private:
  friend class TemporizadorVirtual;
  struct Agenda;
  std::unique_ptr<Agenda> agenda_;
};

// Random numbers from a seed; the same seed gives the same numbers on every platform.
class Azar {
 public:
  explicit Azar(quint64 semilla) : motor_(semilla) {}
  // A whole number from `desde` to `hasta`, both included.
  int entero(int desde, int hasta) {
    return desde + static_cast<int>(motor_() % static_cast<quint64>(hasta - desde + 1));
  }
  bool ocurre(double probabilidad) {
    return static_cast<double>(motor_() >> 11) * 0x1.0p-53 < probabilidad;
  }
  quint64 siguiente() { return motor_(); }

 private:
  std::mt19937_64 motor_;
};

}  // namespace tarvo
