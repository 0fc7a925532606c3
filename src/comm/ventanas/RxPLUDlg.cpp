#include "comm/ventanas/RxPLUDlg.h"

namespace tarvo::comm {

RxPLUDlg::RxPLUDlg(ventanas::Contexto& c, const QString& nombre, const Servicios& s)
    : DialogoGrupos(c, nombre, s) {
  ui_.setupUi(cuerpo());
  enlazar();
  usar(ui_.lstGpo, ui_.Todas, ui_.Acepto, ui_.Cancelo);
  rango_.emplace(ui_.Desde, ui_.Hasta);
}

std::optional<PeticionTarea> RxPLUDlg::leerCampos() {
  if (!vale(*rango_)) return std::nullopt;
  return PeticionTarea{.clase = clase(),
                       .todo = ui_.opCompleta->isChecked(),
                       .desde = rango_->desde(),
                       .hasta = rango_->hasta()};
}

}  // namespace tarvo::comm
