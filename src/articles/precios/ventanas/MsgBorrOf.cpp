#include "articles/precios/ventanas/MsgBorrOf.h"

#include "articles/precios/ventanas/Comun.h"
#include "articles/precios/ventanas/TextosPreciosVentanas.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;

MsgBorrOf::MsgBorrOf(ventanas::Contexto& contexto, const QString& nombre)
    : Ventana(contexto, nombre) {
  ui_.setupUi(cuerpo());
  enlazar();
  connect(ui_.opSolo, &QRadioButton::toggled, this, &MsgBorrOf::pintar);
  connect(ui_.Cancelo, &QPushButton::clicked, this, &MsgBorrOf::rechazar);
  connect(ui_.Acepto, &QPushButton::clicked, this, [this] {
    if (salida_) *salida_ = ui_.opTodo->isChecked() ? 2 : 1;
    aceptar();
  });
}

Resultado<> MsgBorrOf::preparar(const ventanas::Argumentos& argumentos) {
  salida_ = salidaDe<int>(argumentos);
  seleccionadas_ = argumentos.value(u"seleccionadas"_s, 1).toInt();
  todas_ = argumentos.value(u"todas"_s, 1).toInt();
  ui_.opSolo->setChecked(true);
  for (QWidget* w : {ui_.opSolo, ui_.opTodo}) w->setVisible(todas_ != seleccionadas_);
  pintar();
  (todas_ != seleccionadas_ ? static_cast<QWidget*>(ui_.opSolo) : ui_.Acepto)->setFocus();
  return {};
}

void MsgBorrOf::pintar() {
  const auto con = [this](int una, int varias, int n) {
    QString texto = t(n == 1 ? una : varias);
    CambiaTexto(u"$N"_s, QString::number(n), texto);
    return texto;
  };
  const int van = ui_.opTodo->isChecked() ? todas_ : seleccionadas_;
  ui_.Seleccion->setText(con(kTxUnaSeleccionada, kTxVariasSeleccionadas, seleccionadas_));
  ui_.Pregunta->setText(con(kTxVaAEliminarUna, kTxVaAEliminarVarias, van));
}

}  // namespace tarvo::precios
