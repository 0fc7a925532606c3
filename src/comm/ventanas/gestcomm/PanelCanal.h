// The activity of a channel: its traffic light, its line, its partner, its task.
#pragma once

#include <QFrame>

#include "comm/motor/gestcomm.h"
#include "comm/ventanas/gestcomm/Semaforo.h"
#include "core/textos/Textos.h"

class QLabel;

namespace tarvo::comm {

class PanelCanal final : public QFrame {
 public:
  PanelCanal(int canal, const Textos& textos, QWidget* padre);
  // Repaints only the differences from the current display.
  void mostrar(const motor::VistaCanal& vista, bool encendido);
  // Marks the channel of the selected task, in manual mode.
  void ponerElegido(bool elegido);
  bool parpadea() const { return Semaforo::parpadea(vista_.EstadoCanal); }
  static int anchoPreferido();

 private:
  void poner(QLabel& rotulo, const QString& texto);
  void ponerLinea();
  void changeEvent(QEvent* evento) override;

  const Textos& t_;
  const int canal_;
  bool puesto_ = false;
  motor::VistaCanal vista_;
  QLabel *titulo_, *telef_, *lbtar_, *palabra_, *CanSts_;
  Semaforo* CanSemf_;
};

}  // namespace tarvo::comm
