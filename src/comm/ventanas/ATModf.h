#pragma once

#include "comm/ventanas/Servicios.h"
#include "core/ajustes/Ajustes.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_FormaATModf.h"

namespace tarvo::comm {

// What the modem of one channel is told.
class ATModf final : public ventanas::Ventana {
 public:
  ATModf(ventanas::Contexto& c, const QString& nombre, const Servicios& s);
  Resultado<> preparar(const ventanas::Argumentos& argumentos) override;

 private:
  void llenar(const ParamCanal& canal);
  void anadir();
  void mover(int pasos);
  void habilitar();
  std::optional<int> leer(QLineEdit& campo, QLabel& falta, const Limites& limites);
  void confirmar();

  Ui::FormaATModf ui_;
  ParamCanal* destino_ = nullptr;  // written once, on accepting
};

// An order for a modem begins with "AT".
QString conAT(const QString& orden);

}  // namespace tarvo::comm
