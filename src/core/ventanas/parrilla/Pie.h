// The totals line of a grid: each sum is below its column and moves with it.
#pragma once

#include <QWidget>
#include <vector>

#include "core/dao/Valor.h"

class QHeaderView;

namespace tarvo::ventanas {

class ModeloParrilla;

class Pie final : public QWidget {
 public:
  Pie(QHeaderView& cabecera, QWidget* padre);
  // Texts by column, empty if there is no sum. Hidden if there are none at all.
  void poner(QStringList textos, const QString& nombre);
  const QStringList& textos() const { return textos_; }
  QSize sizeHint() const override;

 private:
  void paintEvent(QPaintEvent* evento) override;

  QHeaderView& cabecera_;
  QStringList textos_;
  QString nombre_;
};

}  // namespace tarvo::ventanas
