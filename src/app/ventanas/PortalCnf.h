// Configuration and utilities.
#pragma once

#include "app/ventanas/Puertas.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_PortalCnf.h"

namespace tarvo::app {

class PortalCnf final : public ventanas::Ventana {
 public:
  PortalCnf(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> entrar(const PuertaPortalCnf&);

 private:
  void ponerAspecto();

  Ui::PortalCnf ui_;
};

}  // namespace tarvo::app
