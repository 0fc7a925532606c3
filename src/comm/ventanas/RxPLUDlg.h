#pragma once

#include "comm/ventanas/DialogoGrupos.h"
#include "comm/ventanas/Puertas.h"

namespace tarvo::comm {

// Asks for the totals of a range of articles from groups, complete or optimised.
class RxPLUDlg final : public DialogoGrupos {
 public:
  RxPLUDlg(ventanas::Contexto& c, const QString& nombre, const Servicios& s);
  Resultado<> entrar(const PuertaRxPLUDlg& puerta) { return pedir(puerta.clase); }

 private:
  PeticionTarea peticion() const override;
};

}  // namespace tarvo::comm
