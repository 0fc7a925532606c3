// The traffic light of a channel: three lamps, at most one of them lit.
#pragma once

#include <QWidget>

namespace tarvo::comm {

class Semaforo final : public QWidget {
 public:
  enum Cara { Oscura, Libre, Ocupado, Fallo };
  explicit Semaforo(QWidget* padre);
  // The lamp for a channel's state. Failures blink: they are lit every other half second.
  static Cara caraDe(int estadoCanal, bool encendido);
  static bool parpadea(int estadoCanal);
  void ponerCara(Cara cara);
  Cara cara() const { return cara_; }
  QSize sizeHint() const override;

 private:
  void paintEvent(QPaintEvent* evento) override;
  Cara cara_ = Oscura;
};

}  // namespace tarvo::comm
