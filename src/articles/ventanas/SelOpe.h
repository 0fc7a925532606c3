// SelOpe: asks for an operator.
#pragma once

#include "articles/ventanas/Puertas.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_SelOpe.h"

namespace tarvo::articles {

class SelOpe final : public ventanas::Ventana {
  Q_OBJECT
 public:
  SelOpe(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> entrar(const PuertaSelOpe& puerta);

 private:
  void elegir();

  Ui::SelOpe ui_;
};

}  // namespace tarvo::articles
