#include "automation/ventanas/CtrlSolo.h"

#include <QApplication>
#include <QKeyEvent>

namespace tarvo::automation {

CtrlSolo::CtrlSolo(QWidget& ventana, std::function<void()> alPulsar)
    : QObject(&ventana), ventana_(ventana), alPulsar_(std::move(alPulsar)) {
  qApp->installEventFilter(this);
}

// A key press arrives here once for each object that it is offered to; a shortcut arrives only as a
// ShortcutOverride.
bool CtrlSolo::eventFilter(QObject* objeto, QEvent* evento) {
  const auto tipo = evento->type();
  if (tipo == QEvent::MouseButtonPress || tipo == QEvent::Wheel) solo_ = false;
  if (tipo == QEvent::KeyPress || tipo == QEvent::ShortcutOverride) {
    const auto* tecla = static_cast<QKeyEvent*>(evento);
    if (tecla->key() != Qt::Key_Control)
      solo_ = false;
    else if (!tecla->isAutoRepeat())
      solo_ = ventana_.isActiveWindow();
  }
  if (tipo == QEvent::KeyRelease && static_cast<QKeyEvent*>(evento)->key() == Qt::Key_Control &&
      std::exchange(solo_, false) && ventana_.isActiveWindow())
    alPulsar_();
  return QObject::eventFilter(objeto, evento);
}

}  // namespace tarvo::automation
