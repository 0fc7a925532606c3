#include "articles/ventanas/EntNmSc.h"

#include "articles/ventanas/ComunArticulos.h"
#include "articles/ventanas/TextosArticulosVentanas.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;

EntNmSc::EntNmSc(ventanas::Contexto& contexto, const QString& nombre) : Ventana(contexto, nombre) {
  ui_.setupUi(cuerpo());
  enlazar();
  connect(ui_.Acepto, &QPushButton::clicked, this, &EntNmSc::elegida);
  connect(ui_.Cancelo, &QPushButton::clicked, this, [this] { rechazar(); });
}

Resultado<> EntNmSc::preparar(const ventanas::Argumentos& argumentos) {
  salida_ = salidaDe<int>(argumentos);
  const bool mover = argumentos.value(u"mover"_s, false).toBool();
  setWindowTitle(t(mover ? kTxMoverPLU : kTxCopiarPLU));
  ui_.que->setText(t(mover ? kTxCuantosSeMueven : kTxCuantosSeCopian,
                     argumentos.value(u"cuantos"_s, 1).toInt()));
  TARVO_INTENTAR(llenarSecciones(*ui_.LstSec, contexto()));
  if (const int propia = ui_.LstSec->findData(argumentos.value(u"seccion"_s)); propia >= 0)
    ui_.LstSec->removeItem(propia);
  if (ui_.LstSec->count() == 0) return fallo(Fallo::NoExiste, t(kTxSinOtraSeccion));
  ui_.LstSec->setFocus();
  return {};
}

void EntNmSc::elegida() {
  if (salida_) *salida_ = ui_.LstSec->currentData().toInt();
  aceptar();
}

}  // namespace tarvo::articles
