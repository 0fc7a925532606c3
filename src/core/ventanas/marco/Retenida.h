// A function that runs an event loop (a box, a menu, a modal window) lets everything happen
// meanwhile, including the unloading of its own window. It keeps that window with:
//
//   const Retenida mientras(this);
//   menu.exec(donde);
//
// A window unloaded meanwhile closes everything on top of it, and is deleted after the last of
// those functions.
#pragma once

#include <QPointer>

class QWidget;

namespace tarvo::ventanas {

class Ventana;

class Retenida {
 public:
  // Keeps the window of `control`; does nothing if there is none, or if it isn't a Ventana.
  explicit Retenida(const QWidget* control);
  ~Retenida();
  Retenida(const Retenida&) = delete;
  Retenida& operator=(const Retenida&) = delete;

 private:
  QPointer<Ventana> ventana_;
};

}  // namespace tarvo::ventanas
