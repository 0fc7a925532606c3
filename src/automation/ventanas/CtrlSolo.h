// The Ctrl key, pressed and released alone, as a command. Ctrl with another key or a click doesn't
// count.
#pragma once

#include <QWidget>
#include <functional>

namespace tarvo::automation {

class CtrlSolo final : public QObject {
  Q_OBJECT
 public:
  // Only reports it while `ventana` is the active window.
  CtrlSolo(QWidget& ventana, std::function<void()> alPulsar);

 private:
  bool eventFilter(QObject* objeto, QEvent* evento) override;

  QWidget& ventana_;
  std::function<void()> alPulsar_;
  bool solo_ = false;
};

}  // namespace tarvo::automation
