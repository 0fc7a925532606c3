// The confirmation of a sum: ConfirSum. Takes "links", the periods to add up; without them the two
// most recent. Accepted, the period that receives them exists.
#pragma once

#include "core/ventanas/marco/Ventana.h"
#include "totals/periodos/VerTot.h"
#include "ui_ConfirSum.h"

namespace tarvo::totals {

class ConfirSumVentana final : public ventanas::Ventana {
  Q_OBJECT
 public:
  ConfirSumVentana(ventanas::Contexto& contexto, const QString& nombre, Periodos& periodos);
  Resultado<> preparar(const ventanas::Argumentos& argumentos) override;

 private:
  Resultado<std::vector<qint64>> losLinks(const ventanas::Argumentos& argumentos);
  void hacerlo();
  void mostrarSolapes();

  Ui::ConfirSum ui_;
  Periodos& p_;
  VerTot motor_;
  VerTot::Suma suma_;
};

}  // namespace tarvo::totals
