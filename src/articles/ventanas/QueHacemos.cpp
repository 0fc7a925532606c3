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
  connect(ui_.Cancelar, &QPushButton::clicked, this, &QueHacemos::rechazar);
}

Resultado<> QueHacemos::entrar(const PuertaQueHacemos& puerta) {
  ui_.que->setText(puerta.que.isEmpty() ? t(kTxCambiosHechos) : puerta.que);
  ui_.NoMas->setChecked(false);
  ui_.Cancelar->setFocus();  // a Return too many sends nothing
  return {};
}

void QueHacemos::responder(bool si) {
  entregar(RespuestaEnvio{.si = si, .noMas = ui_.NoMas->isChecked()}, si);
}

}  // namespace tarvo::articles
