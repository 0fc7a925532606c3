#include "articles/ventanas/EntNmSc.h"

#include "articles/ventanas/ComunArticulos.h"
#include "articles/ventanas/TextosArticulosVentanas.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;

EntNmSc::EntNmSc(ventanas::Contexto& contexto, const QString& nombre) : Ventana(contexto, nombre) {
  ui_.setupUi(cuerpo());
  enlazar();
  connect(ui_.Acepto, &QPushButton::clicked, this,
          [this] { entregar(static_cast<int>(ventanas::elegido(*ui_.LstSec))); });
  connect(ui_.Cancelo, &QPushButton::clicked, this, [this] { rechazar(); });
}

Resultado<> EntNmSc::entrar(const PuertaEntNmSc& puerta) {
  const bool mover = puerta.mover;
  setWindowTitle(t(mover ? kTxMoverPLU : kTxCopiarPLU));
  ui_.que->setText(t(mover ? kTxCuantosSeMueven : kTxCuantosSeCopian, puerta.cuantos));
  TARVO_INTENTAR(ventanas::llenar(*ui_.LstSec, contexto().nombres.secciones(), 3));
  if (const int propia = ui_.LstSec->findData(puerta.seccion); propia >= 0)
    ui_.LstSec->removeItem(propia);
  if (ui_.LstSec->count() == 0) return fallo(Fallo::NoExiste, t(kTxSinOtraSeccion));
  ui_.LstSec->setFocus();
  return {};
}

}  // namespace tarvo::articles
