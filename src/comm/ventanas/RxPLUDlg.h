#pragma once

#include "comm/ventanas/DialogoGrupos.h"
#include "comm/ventanas/Puertas.h"
#include "ui_FormaRxPLUDlg.h"

namespace tarvo::comm {

// Asks for the totals of a range of articles from groups, complete or optimised.
class RxPLUDlg final : public DialogoGrupos {
 public:
  RxPLUDlg(ventanas::Contexto& c, const QString& nombre, const Servicios& s);
  Resultado<> entrar(const PuertaRxPLUDlg& puerta) { return pedir(puerta.clase); }

 private:
  std::optional<PeticionTarea> leerCampos() override;
  Ui::FormaRxPLUDlg ui_;
  std::optional<RangoCodigos> rango_;
};

}  // namespace tarvo::comm
