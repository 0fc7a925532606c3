// Everything is reached from the keyboard: the buttons of a tool bar stand in the order of Tab, and
// each that shows words has a letter.
#pragma once

#include <QSet>
#include <QWidget>

class QAction;
class QToolButton;

namespace tarvo::ventanas {

// Gives the tool bars below `cuerpo` their places in the order of Tab, and their buttons letters
// that no other control there has: the one that "&" marks in the action's text where it is free,
// else the first free one of its words. What finds none is left without.
void ponerAlAlcance(QWidget& cuerpo);

// A button for an action that has one in a tool bar already. It follows the action but for the
// letter, which leads to the bar: two buttons of one letter would both be dead.
void seguirAccion(QToolButton& boton, QAction& accion);

// The letters by which controls below it are reached, in capitals.
QSet<QChar> letrasUsadas(const QWidget& cuerpo);
// A text with "&" before the first letter that isn't in `usadas`, which it is added to.
QString conLetra(const QString& texto, QSet<QChar>& usadas);

}  // namespace tarvo::ventanas
