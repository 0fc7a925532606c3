// The table of a grid with the keys that people expect of a list: Home and End go to the first and
// last row, with Ctrl and the side arrows to the first and last column; Ctrl+Home and Ctrl+End to
// the corners. The row that they lead to is chosen.
#pragma once

#include <QTableView>
#include <functional>

namespace tarvo::ventanas {

class VistaParrilla final : public QTableView {
 public:
  // `completar` brings the rows that the model has not counted yet; it runs before the last row is
  // looked for.
  VistaParrilla(QWidget* padre, std::function<void()> completar);

 protected:
  QModelIndex moveCursor(CursorAction accion, Qt::KeyboardModifiers mandos) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& indice,
                                                       const QEvent* evento) const override;

 private:
  int columnaExtrema(bool ultima) const;

  std::function<void()> completar_;
};

}  // namespace tarvo::ventanas
