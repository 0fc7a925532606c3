// A ruler of the canvas: millimetres on its inner half, dots on its outer one.
#pragma once

#include <QWidget>

namespace tarvo::labels {

class Regla final : public QWidget {
  Q_OBJECT
 public:
  Regla(Qt::Orientation sentido, QWidget* padre);
  static int grueso();
  // `cero`: where dot 0 is, in pixels; `escala`: pixels of a dot; dots from `primero` to `ultimo`.
  void poner(double cero, double escala, int primero, int ultimo);
  void senalar(int punto);  // marks a dot; -1 for none

 private:
  void paintEvent(QPaintEvent* evento) override;
  void numero(QPainter& p, double donde, int valor, bool fuera) const;

  Qt::Orientation sentido_;
  double cero_ = 0, escala_ = 1;
  int primero_ = 0, ultimo_ = 0, senal_ = -1;
};

}  // namespace tarvo::labels
