// An entry in a column-shaped menu: an icon, and its text at a readable distance.
#pragma once

#include <QToolButton>

namespace tarvo::app {

class Entrada final : public QToolButton {
  Q_OBJECT
 public:
  explicit Entrada(QWidget* padre = nullptr);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 private:
  void paintEvent(QPaintEvent* evento) override;
};

}  // namespace tarvo::app
