#include "comm/ventanas/GrpDlg.h"

#include "comm/ventanas/TextosCommVentanas.h"

namespace tarvo::comm {

GrpDlg::GrpDlg(ventanas::Contexto& c, const QString& nombre, const Servicios& s)
    : DialogoGrupos(c, nombre, s) {
  ui_.setupUi(cuerpo());
  enlazar();
  usar(ui_.lstGpo, ui_.Todas, ui_.Acepto, ui_.Cancelo);
}

Resultado<> GrpDlg::entrar(const PuertaGrpDlg& puerta) {
  TARVO_INTENTAR(pedir(puerta.clase));
  const ModoPedir modo = puerta.modo;
  ui_.NmBz->clear();
  ui_.NmBz->setVisible(modo == kModoBalanza);
  ui_.rotBz->setVisible(modo == kModoBalanza);
  ui_.ConPrt->setVisible(modo == kModoCero && contexto().ajustes.EsEspanol());
  ui_.ConPrt->setChecked(true);
  return {};
}

std::optional<PeticionTarea> GrpDlg::leerCampos() {
  PeticionTarea p{.clase = clase()};
  if (!ui_.ConPrt->isHidden()) p.todo = ui_.ConPrt->isChecked();
  const QString balanza = ui_.NmBz->text().trimmed();
  if (balanza.isEmpty()) return p;
  bool vale = false;
  const int n = balanza.toInt(&vale);
  if (!vale || n < 1) {
    falta(*ui_.NmBz, t(kTxBalanzaMala));
    return std::nullopt;
  }
  p.todo = false;
  p.desde = n - 1;
  return p;
}

}  // namespace tarvo::comm
