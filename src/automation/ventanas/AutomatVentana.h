// The process being run: its steps with their states, the trace as it is written, and the buttons
// that advance, hold and stop it.
#pragma once

#include "automation/Automat.h"
#include "automation/ventanas/Puertas.h"
#include "comm/motor/gestcomm.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_Automat.h"

namespace tarvo::automation {

class AutomatVentana final : public ventanas::Ventana, private ObservadorAutomat {
  Q_OBJECT
 public:
  AutomatVentana(ventanas::Contexto& c, const QString& nombre, Automat& automat,
                 const Lenguaje& lenguaje, const motor::gestcomm& motor);
  ~AutomatVentana() override;

  Resultado<> entrar(const PuertaAutomat& puerta);
  bool QueryUnload() override;

 private:
  void automatCambiado() override;
  void lineaEscrita(const QString& linea) override;
  void keyPressEvent(QKeyEvent* evento) override;

  void conectar();
  Resultado<> cargar(const QString& ruta);
  void alHorario(const QString& ruta);
  void alto();
  void cuandoAcaba();
  void soltar();
  void ponerFase();
  void ponerCierre();
  void ponerBotones();
  void ponerPorQue();
  void seguirTraza();
  void ponerPasos();
  void ponerCola();
  void empezarTraza();

  Automat& a_;
  const Lenguaje& lenguaje_;
  const motor::gestcomm& motor_;
  Ui::FormaAutomat ui_;
  std::unique_ptr<Temporizador> cierre_, cola_;
  std::vector<VistaPaso> vistos_;  // as displayed in the grid
  int pasoVisto_ = -1;
  bool preguntando_ = false, soltada_ = false;
  bool sigueTraza_ = true;  // the end of the trace is in view, and stays there
};

}  // namespace tarvo::automation
