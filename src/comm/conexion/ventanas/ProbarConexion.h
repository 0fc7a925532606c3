#pragma once

#include "comm/conexion/Prueba.h"
#include "comm/conexion/ventanas/Puertas.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_FormaProbarConexion.h"

namespace tarvo::conexion {

// The test of the connection of a group: its access and its machines, one by one, and what to look
// at for each that doesn't answer.
class ProbarConexion final : public ventanas::Ventana {
  Q_OBJECT
 public:
  ProbarConexion(ventanas::Contexto& c, const QString& nombre, const Servicios& s);
  Resultado<> entrar(const PuertaProbar& puerta);

 protected:
  void keyPressEvent(QKeyEvent* evento) override;

 private:
  void probar();
  void parar();
  void pintar();
  void pintarConsejo();
  void acabada();

  Ui::FormaProbarConexion ui_;
  Prueba prueba_;
  GrupoProbado grupo_;
  qint64 hasta_ = -1;  // when the last test ended, on the monotonic clock
};

}  // namespace tarvo::conexion
