// The active timetable: its processes and their hours, the clock, and the time left until the next
// one.
#pragma once

#include "automation/Cronos.h"
#include "automation/ventanas/ConsienteOlvidos.h"
#include "automation/ventanas/Puertas.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_Cronos.h"

namespace tarvo::automation {

class CronosVentana final : public ventanas::Ventana {
  Q_OBJECT
 public:
  CronosVentana(ventanas::Contexto& c, const QString& nombre, Cronos& cronos,
                ConsienteOlvidos consiente);
  ~CronosVentana() override;

  // While a timetable is active, this window replaces the main one.
  Resultado<> entrar(const PuertaCronos& puerta);
  bool QueryUnload() override;

 private:
  void conectar();
  void relevarPrincipal();
  bool consienteDejarlo(int pregunta);
  void arranca();
  void refrescar();
  void ponerLineas();
  void ponerProximo();
  void volverSiAcabo();
  void ejecutarAhora();
  void verTraza();
  void soltar();

  Cronos& cronos_;
  ConsienteOlvidos consiente_;
  Ui::FormaCronos ui_;
  bool habiaPrincipal_ = false, apartada_ = false, soltada_ = false;
  QStringList avisos_;
};

}  // namespace tarvo::automation
