#pragma once

#include "comm/ventanas/Puertas.h"
#include "comm/ventanas/Servicios.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_FormaDiagnostico.h"

namespace tarvo::comm {

// The problem of a task, in the words of the error table.
class Diagnostico final : public ventanas::Ventana {
 public:
  Diagnostico(ventanas::Contexto& c, const QString& nombre, const Servicios& s);
  Resultado<> entrar(const PuertaDiagnostico& puerta);

 private:
  void decir(int estado, int error, const QString& textoError, const QString& trajo = {});

  Ui::FormaDiagnostico ui_;
  Servicios s_;
  int tarea_ = 0;
};

}  // namespace tarvo::comm
