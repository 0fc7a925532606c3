// FormDetalles: the readings received, by group and kind, and their destination.
#pragma once

#include "core/ventanas/edicion/Ficha.h"
#include "totals/ventanas/Puertas.h"
#include "ui_FormDetalles.h"

namespace tarvo::totals {

// The destination: one of the proposed periods for all readings, or its own for each; and whether
// an existing period is replaced.
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
  // The choice only takes effect when the session is memorised, so closing loses nothing and asks
  // nothing.
  bool QueryUnload() override { return false; }

 private:
  Resultado<> llenar();
  void aplicada() override;

  Ui::FormDetalles ui_;
  DetalleSesion d_;
};

}  // namespace tarvo::totals
