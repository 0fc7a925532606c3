// The picture of how the computer reaches a group: the computer, the access and the machines.
#pragma once

#include <QWidget>
#include <optional>

#include "core/valores/Tipos.h"

namespace tarvo::groups {

class DibujoEnlace final : public QWidget {
 public:
  explicit DibujoEnlace(QWidget* padre);
  // `texto`: what it says below the access. `maquina`: the name of the drawing of the machines.
  void poner(std::optional<TipoAcceso> acceso, const QString& texto, const QString& maquina,
             int cuantas);

 private:
  void paintEvent(QPaintEvent* evento) override;

  std::optional<TipoAcceso> acceso_;
  QString texto_, maquina_;
  int cuantas_ = 0;
};

}  // namespace tarvo::groups
