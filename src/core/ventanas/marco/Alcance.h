// Everything can be reached from the keyboard: the buttons of a tool bar are in the tab order, and
// each of them with a text, each caption of a field, check box and button has a mnemonic letter.
#pragma once

#include <QSet>
#include <QWidget>

class QAction;
class QMenu;
class QToolBar;
class QToolButton;

namespace tarvo::ventanas {

// Puts the buttons of the tool bars below `cuerpo` into the tab order and gives them letters not
// used by any other control there: the letter marked with "&" in the action's text if it is free,
// else the first free one of the text. Then the captions of fields, the check boxes and the buttons
// without a letter get the first free one of theirs. A control for which none is free gets none.
// Escape in a menu of a menu bar gives the keyboard back to the control that had it.
void ponerAlAlcance(QWidget& cuerpo);

// The title of its window as it is seen and heard: without the mark for unsaved changes.
QString tituloSinMarca(const QWidget& w);

// Makes a button follow an action that already has one in a tool bar, except for the letter, which
// stays with the bar: Qt activates neither of two buttons with the same letter.
void seguirAccion(QToolButton& boton, QAction& accion);

// Gives each entry of a menu a letter of its own.
void ponerLetras(QMenu& menu);
// Opens it at a point of the screen with its first entry highlighted, so that Return chooses it.
void desplegar(QMenu& menu, const QPoint& donde);
// Where the menu of an action of the bar opens: below its button, or below the bar if the button
// isn't seen.
QPoint bajo(QToolBar& barra, QAction& accion);

// The letters that reach the controls below it, in capitals.
QSet<QChar> letrasUsadas(const QWidget& cuerpo);
// Those that press something, and so may ask a question.
QSet<QChar> letrasDeBotones(const QWidget& cuerpo);
// The text with "&" before its first letter that isn't in `usadas`; that letter is added to
// `usadas`.
QString conLetra(const QString& texto, QSet<QChar>& usadas);

}  // namespace tarvo::ventanas
