// The side panel of a list, shown and hidden by a button; its state is remembered for each window.
#pragma once

#include <QAction>
#include <QSplitter>

#include "core/ventanas/marco/Recuerdos.h"

namespace tarvo::totals {

// Visible at first, until the user hides it.
void unirLado(QAction& interruptor, QWidget& lado, ventanas::Recuerdos& recuerdos,
              const QString& ventana);
// Gives the list the larger part (5 : 2) the first time the window is opened.
void repartirLado(QSplitter& divisor, const ventanas::Recuerdos& recuerdos, const QString& ventana);

}  // namespace tarvo::totals
