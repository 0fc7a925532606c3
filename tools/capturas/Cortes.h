// The unreadable parts of a window: texts without enough room, controls outside their place.
#pragma once

#include <QStringList>
#include <QWidget>

namespace tarvo::capturas {

// A line for each fault, empty if everything is readable. REQUIRES a visible window.
QStringList cortes(const QWidget& ventana);
// Of these only the controls that share a letter: neither answers to it at once.
QStringList letrasRepetidas(const QWidget& ventana);

}  // namespace tarvo::capturas
