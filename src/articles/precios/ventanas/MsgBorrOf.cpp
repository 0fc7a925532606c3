#include "articles/precios/ventanas/MsgBorrOf.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "articles/precios/ventanas/TextosPreciosVentanas.h"
#include "core/ventanas/TextosVentanas.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;

MsgBorrOf::MsgBorrOf(ventanas::Contexto& contexto, const QString& nombre)
    : FichaDe(contexto, nombre) {
  auto f = formulario(kTxBorrandoOfertas);
  seleccion_ = f.nota(u"Seleccion"_s);
  solo_ = f.ancho(new QRadioButton(t(kTxSoloEsteGrupo)), u"opSolo"_s);
  todo_ = f.ancho(new QRadioButton(t(kTxTodosLosGrupos)), u"opTodo"_s);
  pregunta_ = f.nota(u"Pregunta"_s);
  f.muelle();
  acabar({380, 180}, {.textoAcepto = ventanas::kTxAceptar,
                      .textoCancelo = ventanas::kTxCancelar,
                      .destruye = true});
  connect(solo_, &QRadioButton::toggled, this, &MsgBorrOf::pintar);
}

Resultado<> MsgBorrOf::entrar(const PuertaMsgBorrOf& puerta) {
  TARVO_INTENTAR(editar(puerta));
  solo_->setChecked(true);
  const bool hayMas = r.todas != r.seleccionadas;
  for (QWidget* w : {solo_, todo_}) w->setVisible(hayMas);
  pintar();
  (hayMas ? static_cast<QWidget*>(solo_) : cancelo())->setFocus();
  return {};
}

void MsgBorrOf::pintar() {
  const auto con = [this](int una, int varias, int n) {
    QString texto = t(n == 1 ? una : varias);
    CambiaTexto(u"$N"_s, QString::number(n), texto);
    return texto;
  };
  const int van = todo_->isChecked() ? r.todas : r.seleccionadas;
  seleccion_->setText(con(kTxUnaSeleccionada, kTxVariasSeleccionadas, r.seleccionadas));
  pregunta_->setText(con(kTxVaAEliminarUna, kTxVaAEliminarVarias, van));
}

void MsgBorrOf::aplicada() {
  entregar(todo_->isChecked() ? Borrar::Todos : Borrar::EsteGrupo);
}

}  // namespace tarvo::precios
