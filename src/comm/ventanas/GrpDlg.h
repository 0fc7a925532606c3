#pragma once

#include "comm/ventanas/DialogoGrupos.h"
#include "comm/ventanas/Puertas.h"

namespace tarvo::comm {

// Asks for the groups of a task; for some kinds also for the scale, for a zeroing whether to
// report.
class GrpDlg final : public DialogoGrupos {
 public:
  GrpDlg(ventanas::Contexto& c, const QString& nombre, const Servicios& s);
  Resultado<> entrar(const PuertaGrpDlg& puerta);

 private:
  ventanas::Modo balanza();
  PeticionTarea peticion() const override;
  std::vector<FaltaCampo> comprobar() override;

  QWidget* deBalanza_;
  ventanas::Campo *deNumero_, *informe_;
};

}  // namespace tarvo::comm
