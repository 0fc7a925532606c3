// Asks whether to send what was changed now: QueHacemos. Arguments: "que" says what was changed,
// "salida" takes the answer.
#pragma once

#include "core/ventanas/marco/Ventana.h"
#include "ui_QueHacemos.h"

namespace tarvo::articles {

struct RespuestaEnvio {
  bool si = false, noMas = false;
};

class QueHacemos final : public ventanas::Ventana {
  Q_OBJECT
 public:
  QueHacemos(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> preparar(const ventanas::Argumentos& argumentos) override;

 private:
  void responder(bool si);

  Ui::QueHacemos ui_;
  std::shared_ptr<RespuestaEnvio> salida_;
};

}  // namespace tarvo::articles
