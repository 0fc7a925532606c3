// What was received, group by group and kind by kind, and where it is to go: FormDetalles. Takes in
// "salida" a shared DetalleSesion, which it changes only when it is accepted.
#pragma once

#include "core/ventanas/marco/Ventana.h"
#include "totals/ventanas/DetalleSesion.h"
#include "ui_FormDetalles.h"

namespace tarvo::totals {

class FormDetallesVentana final : public ventanas::Ventana {
  Q_OBJECT
 public:
  FormDetallesVentana(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> preparar(const ventanas::Argumentos& argumentos) override;

 private:
  void montar();
  Resultado<> llenar();
  void aplicar();

  Ui::FormDetalles ui_;
  std::shared_ptr<DetalleSesion> d_;
};

}  // namespace tarvo::totals
