// What can't be read in a window: texts with less room than they need, controls outside their
// place.
#pragma once

#include <QStringList>
#include <QWidget>

namespace tarvo::capturas {

// A line for each fault, empty when all can be read. REQUIRES a window that is shown.
QStringList cortes(const QWidget& ventana);

}  // namespace tarvo::capturas
