// NoStkBle: warns about a period that no reception created. Accepting it means going on
// nevertheless.
#pragma once

#include "core/ventanas/marco/Ventana.h"
#include "totals/ventanas/Puertas.h"
#include "ui_NoStkBle.h"

namespace tarvo::totals {

class NoStkBleVentana final : public ventanas::Ventana {
  Q_OBJECT
 public:
  NoStkBleVentana(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> entrar(const PuertaNoStkBle& /*puerta*/) { return {}; }

 private:
  Ui::NoStkBle ui_;
};

}  // namespace tarvo::totals
