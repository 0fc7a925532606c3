// What was received, group by group and kind by kind, and where it is to go: FormDetalles. Takes in
// "salida" a shared DetalleSesion, which it changes only when it is accepted.
#pragma once

#include "core/ventanas/Ventana.h"
#include "totals/CerrSes.h"
#include "ui_FormDetalles.h"

namespace tarvo::totals {

struct DetalleSesion {
  std::vector<Recibido> recibidos;
  std::vector<Propuesto> propuestos;
  bool sustituir = true;
  int elegido = -1;  // of `propuestos`; -1 for each its own
};

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
