// How a cell looks: its side, pale zeros, the colour and weight of a state.
#pragma once

#include <QStyledItemDelegate>

namespace tarvo::ventanas {

class Delegado final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* opcion, const QModelIndex& indice) const override;
};

}  // namespace tarvo::ventanas
