// How wide a deletion of offers goes: MsgBorrOf. Takes "seleccionadas" and "todas", hands into
// "salida" (shared int) 0 for nothing, 1 for this group only, 2 for all groups.
#pragma once

#include "core/ventanas/marco/Ventana.h"
#include "ui_MsgBorrOf.h"

namespace tarvo::precios {

class MsgBorrOf final : public ventanas::Ventana {
  Q_OBJECT
 public:
  MsgBorrOf(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> preparar(const ventanas::Argumentos& argumentos) override;

 private:
  void pintar();

  Ui::MsgBorrOf ui_;
  std::shared_ptr<int> salida_;
  int seleccionadas_ = 0, todas_ = 0;
};

}  // namespace tarvo::precios
