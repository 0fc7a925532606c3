// The pictures of a group's editor: the models to choose from, the ten places, and the two boxes
// beside them (clipboard and bin). What is dragged from one of them can be dropped on another of
// the same window; every gesture has its keys as well.
#pragma once

#include <QListWidget>
#include <QToolButton>
#include <optional>

class QMimeData;

namespace tarvo::groups {

// What is being dragged: a model of the list (none: a register), the machine of a place, or the
// contents of the clipboard.
struct Arrastre {
  enum De : int { Modelo, Sitio, Portapapeles };
  De de = Modelo;
  int cual = -1;  // the model, or the place
  bool operator==(const Arrastre&) const = default;
};
// REQUIRES the caller to give it to a QDrag. `ventana`: the window that it doesn't leave.
QMimeData* comoMime(const Arrastre& arrastre, const QString& ventana);
std::optional<Arrastre> deMime(const QMimeData& datos, const QString& ventana);

// A list of pictures, with or without places to drop things on.
class ListaDibujos : public QListWidget {
  Q_OBJECT
 public:
  ListaDibujos(QWidget* padre, const QString& ventana, Arrastre::De de, int columnas);

 Q_SIGNALS:
  void soltado(const tarvo::groups::Arrastre& que, int en, bool mueve);
  void empujado(int de, int a);  // Ctrl and an arrow: the machine goes to that place

 protected:
  void startDrag(Qt::DropActions acciones) override;
  void resizeEvent(QResizeEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;
  void dragEnterEvent(QDragEnterEvent* evento) override;
  void dragMoveEvent(QDragMoveEvent* evento) override;
  void dropEvent(QDropEvent* evento) override;

 private:
  QString ventana_;
  Arrastre::De de_;
  int columnas_;
};

// A button on which a machine can be dropped. `origen`: what it gives when it is dragged.
class Caja final : public QToolButton {
  Q_OBJECT
 public:
  Caja(QWidget* padre, const QString& ventana, std::optional<Arrastre> origen = {});

 Q_SIGNALS:
  void soltado(const tarvo::groups::Arrastre& que);

 private:
  void mousePressEvent(QMouseEvent* evento) override;
  void mouseMoveEvent(QMouseEvent* evento) override;
  void dragEnterEvent(QDragEnterEvent* evento) override;
  void dropEvent(QDropEvent* evento) override;

  QString ventana_;
  std::optional<Arrastre> origen_;
  QPoint desde_;
};

}  // namespace tarvo::groups
