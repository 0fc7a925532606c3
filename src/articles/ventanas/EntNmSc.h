// EntNmSc: asks for the section to which articles are copied or moved.
#pragma once

#include "articles/ventanas/Puertas.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_EntNmSc.h"

namespace tarvo::articles {

class EntNmSc final : public ventanas::Ventana {
  Q_OBJECT
 public:
  EntNmSc(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> entrar(const PuertaEntNmSc& puerta);

 private:
  Ui::EntNmSc ui_;
};

}  // namespace tarvo::articles
