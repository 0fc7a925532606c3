#include "core/ventanas/parrilla/VistaParrilla.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>

namespace tarvo::ventanas {

VistaParrilla::VistaParrilla(QWidget* padre, std::function<void()> completar)
    : QTableView(padre), completar_(std::move(completar)) {}

// The first or last visible column, in the order on the screen; -1 if there is none.
int VistaParrilla::columnaExtrema(bool ultima) const {
  const QHeaderView& h = *horizontalHeader();
  for (int v = 0; v < h.count(); ++v) {
    const int columna = h.logicalIndex(ultima ? h.count() - 1 - v : v);
    if (!h.isSectionHidden(columna)) return columna;
  }
  return -1;
}

QModelIndex VistaParrilla::moveCursor(CursorAction accion, Qt::KeyboardModifiers mandos) {
  if (!model()) return {};
  const bool ctrl = mandos & Qt::ControlModifier;
  const bool fin = accion == MoveEnd || accion == MoveRight;
  if (accion == MoveHome || accion == MoveEnd) {
    if (fin) completar_();
    const int columna =
        ctrl || !currentIndex().isValid() ? columnaExtrema(fin) : currentIndex().column();
    return model()->index(fin ? model()->rowCount() - 1 : 0, columna);
  }
  if (ctrl && currentIndex().isValid() && (accion == MoveLeft || accion == MoveRight))
    return currentIndex().siblingAtColumn(columnaExtrema(fin));
  return QTableView::moveCursor(accion, mandos);
}

// Home and End also select the row: the current row is always the highlighted one.
QItemSelectionModel::SelectionFlags VistaParrilla::selectionCommand(const QModelIndex& indice,
                                                                    const QEvent* evento) const {
  const bool tecla = evento && evento->type() == QEvent::KeyPress;
  const auto* e = tecla ? static_cast<const QKeyEvent*>(evento) : nullptr;
  const bool extremo = e && (e->key() == Qt::Key_Home || e->key() == Qt::Key_End);
  if (extremo && !(e->modifiers() & Qt::ShiftModifier))
    return QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
  return QTableView::selectionCommand(indice, evento);
}

void VistaParrilla::mousePressEvent(QMouseEvent* evento) {
  const QPersistentModelIndex fila = indexAt(evento->pos());
  const int antes = visualRect(fila).top();
  donde_ = evento->globalPosition().toPoint();
  {
    const QScopedValueRollback en(pulsando_, true);
    QTableView::mousePressEvent(evento);
  }
  if (pulsada_) pulsada_();
  corridas_ = fila.isValid() && visualRect(fila).top() != antes;
}

// A hand that trembles drags no selection to the row that has come under the pointer.
void VistaParrilla::mouseMoveEvent(QMouseEvent* evento) {
  const int lejos = (evento->globalPosition().toPoint() - donde_).manhattanLength();
  if (corridas_ && evento->buttons() && lejos < QApplication::startDragDistance()) return;
  QTableView::mouseMoveEvent(evento);
}

// A strip that appears above the table makes it smaller.
void VistaParrilla::resizeEvent(QResizeEvent* evento) {
  const int faltan = evento->oldSize().height() - evento->size().height();
  const QRect fila = visualRect(currentIndex());
  const bool visible =
      fila.isValid() && fila.bottom() >= 0 && fila.top() < evento->oldSize().height();
  QTableView::resizeEvent(evento);
  if (faltan > 0 && visible) scrollTo(currentIndex());
}

}  // namespace tarvo::ventanas
