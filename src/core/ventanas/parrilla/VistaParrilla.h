// The table of a grid with the usual keys of a list: Home and End move to the first and last row,
// Ctrl with the side arrows to the first and last column, Ctrl+Home and Ctrl+End to the corners.
// The row reached is selected. The current row stays in view when the table gets smaller.
#pragma once

#include <QTableView>
#include <functional>

namespace tarvo::ventanas {

class VistaParrilla final : public QTableView {
 public:
  // `completar` loads the rows that the model has not counted yet; it is called before moving to
  // the last row.
  VistaParrilla(QWidget* padre, std::function<void()> completar);

 protected:
  QModelIndex moveCursor(CursorAction accion, Qt::KeyboardModifiers mandos) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& indice,
                                                       const QEvent* evento) const override;
  void resizeEvent(QResizeEvent* evento) override;

 private:
  int columnaExtrema(bool ultima) const;

  std::function<void()> completar_;
};

}  // namespace tarvo::ventanas
