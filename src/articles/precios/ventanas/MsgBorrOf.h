// MsgBorrOf: asks for the extent of a deletion of offers.
#pragma once

#include "articles/precios/ventanas/Puertas.h"
#include "core/ventanas/edicion/Ficha.h"

class QRadioButton;

namespace tarvo::precios {

class MsgBorrOf final : public ventanas::FichaDe<PuertaMsgBorrOf> {
 public:
  MsgBorrOf(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> entrar(const PuertaMsgBorrOf& puerta);

 private:
  void pintar();
  void aplicada() override;

  QLabel *seleccion_, *pregunta_;
  QRadioButton *solo_, *todo_;
};

}  // namespace tarvo::precios
