#pragma once

#include "comm/ventanas/DialogoGrupos.h"
#include "comm/ventanas/Puertas.h"
#include "ui_FormaTxPLUdlg.h"

namespace tarvo::comm {

// Sends the articles in a range of codes, or only their prices, to groups.
class TxPLUdlg final : public DialogoGrupos {
 public:
  TxPLUdlg(ventanas::Contexto& c, const QString& nombre, const Servicios& s);
  Resultado<> entrar(const PuertaTxPLUdlg& puerta) { return pedir(puerta.clase); }

 private:
  std::optional<PeticionTarea> leerCampos() override;
  Ui::FormaTxPLUdlg ui_;
  std::optional<RangoCodigos> rango_;
};

}  // namespace tarvo::comm
