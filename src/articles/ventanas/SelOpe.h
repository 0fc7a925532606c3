// Picks an operator: SelOpe. "salida" takes its code, 0 when nothing was picked.
#pragma once

#include "core/ventanas/marco/Ventana.h"
#include "ui_SelOpe.h"

namespace tarvo::articles {

class SelOpe final : public ventanas::Ventana {
  Q_OBJECT
 public:
  SelOpe(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> preparar(const ventanas::Argumentos& argumentos) override;

  int Seleccion() const { return seleccion_; }

 private:
  void elegir();

  Ui::SelOpe ui_;
  int seleccion_ = 0;
  std::shared_ptr<int> salida_;
};

}  // namespace tarvo::articles
