// The panels of all channels, in as many columns as fit.
#pragma once

#include <QWidget>
#include <vector>

#include "comm/ventanas/gestcomm/PanelCanal.h"

class QGridLayout;

namespace tarvo::comm {

class PanelesCanales final : public QWidget {
 public:
  PanelesCanales(const Textos& textos, QWidget* padre);
  // `elegido`: the channel of the selected task, -1 for none.
  void mostrar(const std::vector<motor::VistaCanal>& canales, int elegido);
  // Toggles the blinking ones; false if none blinks.
  bool parpadear();
  PanelCanal* panel(int canal) const { return paneles_[static_cast<size_t>(canal)]; }
  int cuantos() const { return static_cast<int>(paneles_.size()); }

 private:
  void resizeEvent(QResizeEvent* evento) override;
  void colocar();

  const Textos& t_;
  QGridLayout* reja_;
  std::vector<PanelCanal*> paneles_;
  std::vector<motor::VistaCanal> vistas_;
  int columnas_ = 0;
  bool encendido_ = true;
};

}  // namespace tarvo::comm
