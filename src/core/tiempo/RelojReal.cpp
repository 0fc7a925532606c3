#include <QDateTime>
#include <QTimer>
#include <chrono>

#include "core/tiempo/Reloj.h"

namespace tarvo {

namespace {

qint64 milisegundos() {
  return std::chrono::duration_cast<std::chrono::milliseconds>(
             std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

class TemporizadorReal final : public Temporizador {
 public:
  explicit TemporizadorReal(std::function<void()> alVencer) {
    timer_.setTimerType(Qt::PreciseTimer);
    // The copy keeps the handler alive while it destroys this timer.
    timer_.callOnTimeout([alVencer = std::make_shared<std::function<void()>>(std::move(alVencer))] {
      const auto vivo = alVencer;  // NOLINT(performance-unnecessary-copy-initialization)
      (*vivo)();
    });
  }
  void unaVez(int ms) override { arrancar(ms, true); }
  void cada(int ms) override { arrancar(ms, false); }
  void parar() override { timer_.stop(); }
  bool activo() const override { return timer_.isActive(); }
  int intervalo() const override { return timer_.interval(); }

 private:
  void arrancar(int ms, bool una) {
    timer_.setSingleShot(una);
    timer_.start(ms);
  }
  QTimer timer_;
};

}  // namespace

RelojReal::RelojReal() : inicio_(milisegundos()) {}

Fecha RelojReal::ahora() const {
  return Fecha::de(QDateTime::currentDateTime());
}

qint64 RelojReal::monotono() const {
  return milisegundos() - inicio_;
}

std::unique_ptr<Temporizador> RelojReal::temporizador(std::function<void()> alVencer) {
  return std::make_unique<TemporizadorReal>(std::move(alVencer));
}

}  // namespace tarvo
