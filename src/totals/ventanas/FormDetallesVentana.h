// What was received, group by group and kind by kind, and where it is to go: FormDetalles.
#pragma once

#include "core/ventanas/edicion/Ficha.h"
#include "totals/ventanas/Puertas.h"
#include "ui_FormDetalles.h"

namespace tarvo::totals {

// Where it goes: all of it to one of the proposed periods, or each reading to its own; and whether
// a period that is there is replaced.
struct DestinoElegido {
  bool aUno = true, sustituir = true;
  int cual = 0;
  bool operator==(const DestinoElegido&) const = default;
};

class FormDetallesVentana final : public ventanas::FichaDe<DestinoElegido> {
  Q_OBJECT
 public:
  FormDetallesVentana(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> entrar(const PuertaFormDetalles& puerta);
  // What is chosen counts when it is memorised; leaving is the contrary, and loses nothing.
  bool QueryUnload() override { return false; }

 private:
  Resultado<> llenar();
  void aplicada() override;

  Ui::FormDetalles ui_;
  DetalleSesion d_;
};

}  // namespace tarvo::totals
