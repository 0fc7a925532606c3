// The Ctrl key pressed and let go by itself, as a command; Ctrl with another key or a click is
// none.
#pragma once

#include <QWidget>
#include <functional>

namespace tarvo::automation {

class CtrlSolo final : public QObject {
  Q_OBJECT
 public:
  // Tells while `ventana` is the active one.
  CtrlSolo(QWidget& ventana, std::function<void()> alPulsar);

 private:
  bool eventFilter(QObject* objeto, QEvent* evento) override;

  QWidget& ventana_;
  std::function<void()> alPulsar_;
  bool solo_ = false;
};

}  // namespace tarvo::automation
