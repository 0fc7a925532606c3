#pragma once

#include "comm/ventanas/DialogoGrupos.h"
#include "comm/ventanas/Puertas.h"
#include "ui_FormaGrpDlg.h"

namespace tarvo::comm {

// Asks for the groups of a task; for some kinds also for the scale, for a zeroing whether to
// report.
class GrpDlg final : public DialogoGrupos {
 public:
  GrpDlg(ventanas::Contexto& c, const QString& nombre, const Servicios& s);
  Resultado<> entrar(const PuertaGrpDlg& puerta);

 private:
  std::optional<PeticionTarea> leerCampos() override;
  Ui::FormaGrpDlg ui_;
};

}  // namespace tarvo::comm
