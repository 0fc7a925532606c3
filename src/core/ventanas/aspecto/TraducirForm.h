// Binds the keys of a form to texts.
#pragma once

#include <QWidget>

#include "core/ajustes/Ajustes.h"
#include "core/textos/Textos.h"

namespace tarvo::ventanas {

// The title of the form, then for each control in turn: its caption (label, button, box, action,
// menu; each tab, item and header of those that have several), its `tag` and its tip. A key
// "TXT0123" becomes that text, empty when the table lacks it; "VISIBLE:E,F,TXT0123" first shows the
// control in the languages named and hides it in all others. Any other text stays. A control
// without text of its own takes its name for assistive tools from the label whose buddy it is, or
// from its tip.
void TraducirForm(QWidget& form, const Textos& textos, Idioma idioma);

// The steps on a text alone.
QString enlazarClave(const QString& texto, const Textos& textos);
struct ReglaVisible {
  std::optional<bool> visible;  // nothing when the text has no rule
  QString texto;                // what is left to bind
};
ReglaVisible leerReglaVisible(const QString& texto, Idioma idioma);

}  // namespace tarvo::ventanas
