// How a cell looks: its alignment, pale zeros, the colour and weight of a state; a text cut off is
// shown whole in the tool tip. And how it is edited: the cell editor of its kind, which stays open
// while its text is refused.
#pragma once

#include <QStyledItemDelegate>

class QLineEdit;

namespace tarvo::ventanas {

class Delegado final : public QStyledItemDelegate {
  Q_OBJECT
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QWidget* createEditor(QWidget* padre, const QStyleOptionViewItem& opcion,
                        const QModelIndex& indice) const override;
  void setEditorData(QWidget* editor, const QModelIndex& indice) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* modelo,
                    const QModelIndex& indice) const override;
  bool helpEvent(QHelpEvent* evento, QAbstractItemView* vista, const QStyleOptionViewItem& opcion,
                 const QModelIndex& indice) override;
  // The next cell editor opens with this text instead of the cell's own; only once.
  void empezarCon(const QString& texto) { primero_ = texto; }
  // Writes an open cell editor and closes it; false if its text is refused: then it stays open.
  bool acabar(QLineEdit& campo);

 Q_SIGNALS:
  // A cell was written, and left by Return (0), Tab (1) or Backtab (-1).
  void acabada(int pasos);

 protected:
  void initStyleOption(QStyleOptionViewItem* opcion, const QModelIndex& indice) const override;
  bool eventFilter(QObject* objeto, QEvent* evento) override;

 private:
  mutable std::optional<QString> primero_;
  mutable bool rechazada_ = false;
};

}  // namespace tarvo::ventanas
