// Binds the keys of a form to texts.
#pragma once

#include <QWidget>

#include "core/ajustes/Ajustes.h"
#include "core/textos/Textos.h"

namespace tarvo::ventanas {

// Translates the title of the form, then for each control in turn its caption (label, button, box,
// action, menu; each tab, item and header of those that have several), its `tag` and its tool tip.
// A key "TXT0123" becomes that text, empty if the table lacks it; "VISIBLE:E,F,TXT0123" first shows
// the control in the languages listed and hides it in all others. Any other text is left unchanged.
// A control without text of its own takes its accessible name from the label whose buddy it is, or
// from its tool tip.
void TraducirForm(QWidget& form, const Textos& textos, Idioma idioma);

// The same steps on a bare text.
QString enlazarClave(const QString& texto, const Textos& textos);
struct ReglaVisible {
  std::optional<bool> visible;  // nothing if the text has no rule
  QString texto;                // the rest, still to be bound
};
ReglaVisible leerReglaVisible(const QString& texto, Idioma idioma);

}  // namespace tarvo::ventanas
