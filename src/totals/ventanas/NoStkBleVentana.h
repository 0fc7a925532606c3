// The warning about a period that no reception made: NoStkBle. Accepted means to go on all the
// same.
#pragma once

#include "core/ventanas/marco/Ventana.h"
#include "ui_NoStkBle.h"

namespace tarvo::totals {

class NoStkBleVentana final : public ventanas::Ventana {
  Q_OBJECT
 public:
  NoStkBleVentana(ventanas::Contexto& contexto, const QString& nombre);

 private:
  Ui::NoStkBle ui_;
};

}  // namespace tarvo::totals
