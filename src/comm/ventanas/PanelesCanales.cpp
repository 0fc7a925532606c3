#include "comm/ventanas/PanelesCanales.h"

#include <QGridLayout>
#include <algorithm>

#include "core/ventanas/Medidas.h"

namespace tarvo::comm {

PanelesCanales::PanelesCanales(const Textos& textos, QWidget* padre)
    : QWidget(padre), t_(textos), reja_(new QGridLayout(this)) {
  reja_->setContentsMargins(0, 0, 0, 0);
  reja_->setSpacing(ventanas::escalar(ventanas::kHueco));
  setMinimumWidth(PanelCanal::anchoPreferido());
}

void PanelesCanales::colocar() {
  const int cabe = width() + reja_->spacing();
  const int columnas = std::max(1, cabe / (PanelCanal::anchoPreferido() + reja_->spacing()));
  const bool igual = columnas == columnas_ && reja_->count() == cuantos();
  if (igual) return;
  if (columnas_ > 0) reja_->setRowStretch((cuantos() + columnas_) / columnas_ + 1, 0);
  for (int i = 0; i < cuantos(); ++i) {
    reja_->removeWidget(panel(i));
    reja_->addWidget(panel(i), i / columnas, i % columnas);
  }
  for (int c = 0; c < std::max(columnas, columnas_); ++c)
    reja_->setColumnStretch(c, c < columnas ? 1 : 0);
  for (int f = 0; f <= reja_->rowCount(); ++f) reja_->setRowStretch(f, 0);
  columnas_ = columnas;
  reja_->setRowStretch(cuantos() / columnas + 1, 1);
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
    panel(i)->setElegido(i == elegido);
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
