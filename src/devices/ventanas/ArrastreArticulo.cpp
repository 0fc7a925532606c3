#include "devices/ventanas/ArrastreArticulo.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTableView>

namespace tarvo::devices {

ArrastreArticulo::ArrastreArticulo(ventanas::Parrilla& lista, QString columna)
    : QObject(&lista), lista_(lista), columna_(std::move(columna)), rotulo_(new QLabel(&lista)) {
  rotulo_->setFrameShape(QFrame::Box);
  rotulo_->setAutoFillBackground(true);
  rotulo_->setAttribute(Qt::WA_TransparentForMouseEvents);
  rotulo_->hide();
  lista_.vista()->viewport()->installEventFilter(this);
  lista_.vista()->installEventFilter(this);
}

bool ArrastreArticulo::eventFilter(QObject* /*objeto*/, QEvent* evento) {
  const auto raton = [evento] { return static_cast<QMouseEvent*>(evento); };
  switch (evento->type()) {
    case QEvent::MouseButtonPress:
      fila_ = raton()->button() == Qt::LeftButton
                  ? lista_.vista()->rowAt(static_cast<int>(raton()->position().y()))
                  : -1;
      desde_ = raton()->globalPosition().toPoint();
      return false;
    case QEvent::MouseMove:
      if (fila_ < 0 || !(raton()->buttons() & Qt::LeftButton)) return false;
      seguir(raton()->globalPosition().toPoint());
      return true;
    case QEvent::MouseButtonRelease: {
      const int fila = arrastra_ ? fila_ : -1;
      acabar();
      if (fila >= 0) Q_EMIT soltada(fila, raton()->globalPosition().toPoint());
      return fila >= 0;
    }
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
      if (!arrastra_ || static_cast<QKeyEvent*>(evento)->key() != Qt::Key_Escape) return false;
      acabar();
      Q_EMIT dejada();
      return true;
    case QEvent::Hide:
      if (arrastra_) Q_EMIT dejada();
      acabar();
      return false;
    default:
      return false;
  }
}

void ArrastreArticulo::seguir(const QPoint& global) {
  if (!arrastra_ && (global - desde_).manhattanLength() < QApplication::startDragDistance()) return;
  if (!arrastra_) {
    arrastra_ = true;
    rotulo_->setParent(lista_.window());
    rotulo_->setText(lista_.texto(fila_, columna_));
    rotulo_->adjustSize();
    rotulo_->raise();
    rotulo_->show();
  }
  rotulo_->move(rotulo_->parentWidget()->mapFromGlobal(global) + QPoint(12, 12));
  Q_EMIT sobre(global);
}

void ArrastreArticulo::acabar() {
  rotulo_->hide();
  arrastra_ = false;
  fila_ = -1;
}

}  // namespace tarvo::devices
