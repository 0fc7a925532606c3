// The side of a list that a button shows and hides, and that is remembered by window.
#pragma once

#include <QAction>
#include <QSplitter>

#include "core/ventanas/marco/Recuerdos.h"

namespace tarvo::totals {

// Shown from the start, until a person hides it.
void unirLado(QAction& interruptor, QWidget& lado, ventanas::Recuerdos& recuerdos,
              const QString& ventana);
// Two thirds to the list, the first time that the window is seen.
void repartirLado(QSplitter& divisor, const ventanas::Recuerdos& recuerdos, const QString& ventana);

}  // namespace tarvo::totals
