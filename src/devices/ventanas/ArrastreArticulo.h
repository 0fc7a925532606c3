// Dragging a row of a list of articles onto something else of its window.
#pragma once

#include <QLabel>
#include <QObject>
#include <QPoint>

#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::devices {

class ArrastreArticulo final : public QObject {
  Q_OBJECT
 public:
  // What is dragged shows the text of its column. REQUIRES that the list outlives it.
  ArrastreArticulo(ventanas::Parrilla& lista, QString columna);

 Q_SIGNALS:
  void sobre(const QPoint& global);
  void soltada(int fila, const QPoint& global);
  void dejada();  // with Escape, or because the window lost the mouse

 private:
  bool eventFilter(QObject* objeto, QEvent* evento) override;
  void seguir(const QPoint& global);
  void acabar();

  ventanas::Parrilla& lista_;
  QString columna_;
  QLabel* rotulo_;
  QPoint desde_;
  int fila_ = -1;
  bool arrastra_ = false;
};

}  // namespace tarvo::devices
