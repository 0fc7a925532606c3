#pragma once

#include "comm/ventanas/DialogoGrupos.h"
#include "comm/ventanas/Puertas.h"

namespace tarvo::comm {

// Sends the articles in a range of codes, or only their prices, to groups.
class TxPLUdlg final : public DialogoGrupos {
 public:
  TxPLUdlg(ventanas::Contexto& c, const QString& nombre, const Servicios& s);
  Resultado<> entrar(const PuertaTxPLUdlg& puerta) { return pedir(puerta.clase); }

 private:
  PeticionTarea peticion() const override;
};

}  // namespace tarvo::comm
