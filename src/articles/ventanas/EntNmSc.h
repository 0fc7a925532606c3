// Asks for the section into which articles are copied or moved: EntNmSc. Arguments: "mover",
// "seccion" (the one shown, which isn't offered), "cuantos", "salida" (takes the section).
#pragma once

#include "core/ventanas/marco/Ventana.h"
#include "ui_EntNmSc.h"

namespace tarvo::articles {

class EntNmSc final : public ventanas::Ventana {
  Q_OBJECT
 public:
  EntNmSc(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> preparar(const ventanas::Argumentos& argumentos) override;

 private:
  void elegida();

  Ui::EntNmSc ui_;
  std::shared_ptr<int> salida_;
};

}  // namespace tarvo::articles
