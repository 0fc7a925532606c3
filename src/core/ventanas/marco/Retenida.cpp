#include "core/ventanas/marco/Retenida.h"

#include "core/ventanas/marco/Ventana.h"

namespace tarvo::ventanas {

Retenida::Retenida(const QWidget* control)
    : ventana_(control ? qobject_cast<Ventana*>(control->window()) : nullptr) {
  if (ventana_) ++ventana_->retenida_;
}

Retenida::~Retenida() {
  if (ventana_ && --ventana_->retenida_ == 0 && ventana_->cerrada_) ventana_->deleteLater();
}

}  // namespace tarvo::ventanas
