// The table of a grid with the usual keys of a list: Home and End move to the first and last row,
// Ctrl with the side arrows to the first and last column, Ctrl+Home and Ctrl+End to the corners.
// The row reached is selected. The current row stays in view when the table gets smaller. A press
// is for the row under the pointer at that moment, wherever the rows lie afterwards.
#pragma once

#include <QTableView>
#include <functional>

namespace tarvo::ventanas {

class VistaParrilla final : public QTableView {
 public:
  // `completar` loads the rows that the model has not counted yet; it is called before moving to
  // the last row.
  VistaParrilla(QWidget* padre, std::function<void()> completar);
  // A press is being handled: what follows a new current row waits for `alPulsar`, so that nothing
  // moves the rows until the pressed one is selected as well.
  bool pulsando() const { return pulsando_; }
  void alPulsar(std::function<void()> pulsada) { pulsada_ = std::move(pulsada); }

 protected:
  void mousePressEvent(QMouseEvent* evento) override;
  void mouseMoveEvent(QMouseEvent* evento) override;
  QModelIndex moveCursor(CursorAction accion, Qt::KeyboardModifiers mandos) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& indice,
                                                       const QEvent* evento) const override;
  void resizeEvent(QResizeEvent* evento) override;

 private:
  int columnaExtrema(bool ultima) const;

  std::function<void()> completar_, pulsada_;
  QPoint donde_;  // of the press, on the screen
  bool pulsando_ = false;
  bool corridas_ = false;  // the rows have moved under the pointer since
};

}  // namespace tarvo::ventanas
