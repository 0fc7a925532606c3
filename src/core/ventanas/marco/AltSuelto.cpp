#include "core/ventanas/marco/AltSuelto.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>

namespace tarvo::ventanas {

AltSuelto::AltSuelto() {
  qApp->installEventFilter(this);
}

// A control with that letter would have consumed the key before it arrives here.
bool AltSuelto::eventFilter(QObject* objeto, QEvent* evento) {
  if (evento->type() != QEvent::KeyPress || !objeto->isWidgetType()) return false;
  if (qobject_cast<QMenu*>(objeto) || qobject_cast<QMenuBar*>(objeto)) return false;
  const auto& tecla = *static_cast<QKeyEvent*>(evento);
  return tecla.modifiers() == Qt::AltModifier && !tecla.text().isEmpty() &&
         tecla.text()[0].isPrint();
}

}  // namespace tarvo::ventanas
