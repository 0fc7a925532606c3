// What was received, group by group and kind by kind, and where it is to go: FormDetalles.
#pragma once

#include "core/ventanas/marco/Ventana.h"
#include "totals/ventanas/Puertas.h"
#include "ui_FormDetalles.h"

namespace tarvo::totals {

class FormDetallesVentana final : public ventanas::Ventana {
  Q_OBJECT
 public:
  FormDetallesVentana(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> entrar(const PuertaFormDetalles& puerta);

 private:
  void montar();
  Resultado<> llenar();
  void aplicar();

  Ui::FormDetalles ui_;
  DetalleSesion d_;
};

}  // namespace tarvo::totals
