// How a cell looks: its side, pale zeros, the colour and weight of a state. A text that is cut
// stands whole in the tip.
#pragma once

#include <QStyledItemDelegate>

namespace tarvo::ventanas {

class Delegado final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 public:
  bool helpEvent(QHelpEvent* evento, QAbstractItemView* vista, const QStyleOptionViewItem& opcion,
                 const QModelIndex& indice) override;

 protected:
  void initStyleOption(QStyleOptionViewItem* opcion, const QModelIndex& indice) const override;
};

}  // namespace tarvo::ventanas
