#pragma once

#include <QListWidget>
#include <QToolButton>

#include "comm/ventanas/Puertas.h"
#include "core/ventanas/edicion/Ficha.h"

namespace tarvo::comm {

// What the modem of one channel is told.
class ATModf final : public ventanas::FichaDe<enlace::ParamCanal> {
 public:
  ATModf(ventanas::Contexto& c, const QString& nombre);
  Resultado<> entrar(const PuertaATModf& puerta);

 private:
  void montarOrdenes(ventanas::Formulario f);
  void ponerOrdenes(int fila);
  void mover(int pasos);
  void habilitar();
  void aplicada() override;

  QListWidget* lista_;
  QLineEdit* nueva_;
  QLabel* aviso_;
  QPushButton *pon_, *quita_;
  QToolButton *sube_, *baja_;
};

// An order for a modem begins with "AT".
QString conAT(const QString& orden);

}  // namespace tarvo::comm
