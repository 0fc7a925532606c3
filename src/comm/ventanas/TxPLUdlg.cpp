#include "comm/ventanas/TxPLUdlg.h"

namespace tarvo::comm {

TxPLUdlg::TxPLUdlg(ventanas::Contexto& c, const QString& nombre, const Servicios& s)
    : DialogoGrupos(c, nombre, s) {
  ui_.setupUi(cuerpo());
  enlazar();
  usar(ui_.lstGpo, ui_.Todas, ui_.Acepto, ui_.Cancelo);
  rango_.emplace(ui_.desde, ui_.hasta);
}

std::optional<PeticionTarea> TxPLUdlg::leerCampos() {
  if (!vale(*rango_)) return std::nullopt;
  return PeticionTarea{
      .clase = clase(), .todo = true, .desde = rango_->desde(), .hasta = rango_->hasta()};
}

}  // namespace tarvo::comm
