// QueHacemos: asks whether to send the changes now, before a window is closed; Cancelar goes back
// to that window.
#pragma once

#include "articles/ventanas/Puertas.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_QueHacemos.h"

namespace tarvo::articles {

class QueHacemos final : public ventanas::Ventana {
  Q_OBJECT
 public:
  QueHacemos(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> entrar(const PuertaQueHacemos& puerta);

 private:
  void responder(bool si);

  Ui::QueHacemos ui_;
};

}  // namespace tarvo::articles
