#include "articles/ventanas/QueHacemos.h"

#include "articles/ventanas/ComunArticulos.h"
#include "articles/ventanas/TextosArticulosVentanas.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;

QueHacemos::QueHacemos(ventanas::Contexto& contexto, const QString& nombre)
    : Ventana(contexto, nombre) {
  ui_.setupUi(cuerpo());
  enlazar();
  ui_.pregunta->setText(t(kTxEnviarAhora));
  connect(ui_.Si, &QPushButton::clicked, this, [this] { responder(true); });
  connect(ui_.No, &QPushButton::clicked, this, [this] { responder(false); });
}

Resultado<> QueHacemos::preparar(const ventanas::Argumentos& argumentos) {
  salida_ = salidaDe<RespuestaEnvio>(argumentos);
  ui_.que->setText(argumentos.value(u"que"_s, t(kTxCambiosHechos)).toString());
  ui_.NoMas->setChecked(false);
  ui_.Si->setFocus();
  return {};
}

void QueHacemos::responder(bool si) {
  if (salida_) *salida_ = {.si = si, .noMas = ui_.NoMas->isChecked()};
  si ? aceptar() : rechazar();
}

}  // namespace tarvo::articles
