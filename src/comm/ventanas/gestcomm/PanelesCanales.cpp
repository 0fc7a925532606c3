#include "comm/ventanas/gestcomm/PanelesCanales.h"

#include <QGridLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "core/ventanas/aspecto/Medidas.h"

namespace tarvo::comm {

PanelesCanales::PanelesCanales(const Textos& textos, QWidget* padre)
    : QWidget(padre), t_(textos), reja_(new QGridLayout) {
  reja_->setSpacing(ventanas::escalar(ventanas::kHueco));
  auto* todo = new QVBoxLayout(this);
  todo->setContentsMargins(0, 0, 0, 0);
  todo->addLayout(reja_);
  todo->addStretch();
  setMinimumWidth(PanelCanal::anchoPreferido());
}

void PanelesCanales::colocar() {
  const int hueco = reja_->spacing();
  const int columnas = std::max(1, (width() + hueco) / (PanelCanal::anchoPreferido() + hueco));
  if (columnas == columnas_ && reja_->count() == cuantos()) return;
  for (int i = 0; i < cuantos(); ++i) reja_->removeWidget(panel(i));
  for (int i = 0; i < cuantos(); ++i) reja_->addWidget(panel(i), i / columnas, i % columnas);
  for (int c = 0; c < std::max(columnas, columnas_); ++c)
    reja_->setColumnStretch(c, c < columnas ? 1 : 0);
  columnas_ = columnas;
}

void PanelesCanales::resizeEvent(QResizeEvent* evento) {
  QWidget::resizeEvent(evento);
  colocar();
}

void PanelesCanales::mostrar(const std::vector<motor::VistaCanal>& canales, int elegido) {
  const bool faltan = paneles_.size() < canales.size();
  while (paneles_.size() < canales.size()) paneles_.push_back(new PanelCanal(cuantos(), t_, this));
  vistas_ = canales;
  for (int i = 0; i < cuantos(); ++i) {
    panel(i)->mostrar(vistas_[static_cast<size_t>(i)], encendido_);
    panel(i)->ponerElegido(i == elegido);
  }
  if (faltan) colocar();
}

bool PanelesCanales::parpadear() {
  encendido_ = !encendido_;
  bool alguno = false;
  for (int i = 0; i < cuantos(); ++i) {
    if (!panel(i)->parpadea()) continue;
    alguno = true;
    panel(i)->mostrar(vistas_[static_cast<size_t>(i)], encendido_);
  }
  return alguno;
}

}  // namespace tarvo::comm
