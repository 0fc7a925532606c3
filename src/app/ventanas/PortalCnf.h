// Configuration and utilities.
#pragma once

#include "core/ventanas/marco/Ventana.h"
#include "ui_PortalCnf.h"

namespace tarvo::app {

class PortalCnf final : public ventanas::Ventana {
 public:
  PortalCnf(ventanas::Contexto& contexto, const QString& nombre);

 private:
  void ponerAspecto();

  Ui::PortalCnf ui_;
};

}  // namespace tarvo::app
