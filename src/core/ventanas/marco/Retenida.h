// What runs an event loop inside a function (a box, a menu, a modal window) lets everything happen
// meanwhile, also that the window of that function is unloaded. It keeps that window by this:
//
//   const Retenida mientras(this);
//   menu.exec(donde);
//
// A window that is unloaded meanwhile closes what stands on it, and is deleted after the last of
// those functions.
#pragma once

#include <QPointer>

class QWidget;

namespace tarvo::ventanas {

class Ventana;

class Retenida {
 public:
  // The window that `control` is in; with none, or another kind of window, nothing is kept.
  explicit Retenida(const QWidget* control);
  ~Retenida();
  Retenida(const Retenida&) = delete;
  Retenida& operator=(const Retenida&) = delete;

 private:
  QPointer<Ventana> ventana_;
};

}  // namespace tarvo::ventanas
