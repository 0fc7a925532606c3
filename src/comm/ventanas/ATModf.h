#pragma once

#include <QListWidget>
#include <QToolButton>

#include "comm/ventanas/Puertas.h"
#include "core/ventanas/edicion/Ficha.h"

namespace tarvo::comm {

// The modem commands of one channel.
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

// Prefixes a modem command with "AT" if it lacks it.
QString conAT(const QString& orden);

}  // namespace tarvo::comm
