// An entry in a column-shaped menu: an icon, and its text at a readable distance. It is dimmed
// while another window is active.
#pragma once

#include <QToolButton>

namespace tarvo::app {

class Entrada final : public QToolButton {
  Q_OBJECT
 public:
  explicit Entrada(QWidget* padre = nullptr);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

  // Dims the entry of a window that this version hasn't, and says so. It can still be reached and
  // pressed: whoever presses it is told the same.
  void ponerSinVentana(const QString& motivo);
  bool vale() const { return isEnabled() && !sinVentana_; }

 private:
  bool event(QEvent* evento) override;
  void paintEvent(QPaintEvent* evento) override;

  bool sinVentana_ = false;
};

}  // namespace tarvo::app
