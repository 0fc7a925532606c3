// The keyboard that a person works on: one current key, which the arrows walk, and keys that can be
// dragged or carried onto others.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <optional>

#include "devices/ventanas/DibujoTeclado.h"

namespace tarvo::devices {

class LienzoTeclado final : public QWidget {
  Q_OBJECT
 public:
  explicit LienzoTeclado(QWidget* padre);

  void poner(const Geometria& geometria, const QString& modelo);
  // REQUIRES one for each key.
  void ponerCaras(std::vector<CaraDeTecla> caras);
  const CaraDeTecla& cara(int tecla) const { return caras_.at(static_cast<size_t>(tecla - 1)); }
  int teclas() const { return static_cast<int>(caras_.size()); }

  int actual() const { return actual_; }
  void irA(int tecla);
  // The rectangle of a key, in pixels of this widget.
  QRectF sitio(int tecla) const { return escala_(geometria_.tecla(tecla)); }
  int teclaEnGlobal(const QPoint& global) const;

  // Lifts the current key: the arrows choose its new place, Return puts it there, Escape leaves it.
  void levantar();
  bool levantada() const { return levantada_ > 0; }
  // While something from outside is dragged over it: the key below is shown as its target.
  void apuntar(int tecla);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void actualCambiada(int tecla);
  void mover(int de, int a);
  void arrastrada(const QPoint& global);  // a key is being dragged; null when it no longer is
  void soltadaFuera(int tecla, const QPoint& global);  // dragged off the keyboard
  void editar(int tecla);
  void tecleado(const QString& texto);  // what a person begins to type on a key
  void menuPedido(const QPoint& global);

 private:
  bool event(QEvent* evento) override;
  void paintEvent(QPaintEvent* evento) override;
  void resizeEvent(QResizeEvent* evento) override;
  void changeEvent(QEvent* evento) override;
  void mousePressEvent(QMouseEvent* evento) override;
  void mouseMoveEvent(QMouseEvent* evento) override;
  void mouseReleaseEvent(QMouseEvent* evento) override;
  void mouseDoubleClickEvent(QMouseEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;
  void focusInEvent(QFocusEvent* evento) override;
  void focusOutEvent(QFocusEvent* evento) override;
  void contextMenuEvent(QContextMenuEvent* evento) override;
  bool moverse(const QKeyEvent& evento);
  int teclaEnPunto(QPointF punto) const { return teclaEn(geometria_, escala_.inversa(punto)); }
  void pintarFondo();
  void repintar(int tecla);
  QRect zonaFantasma() const;
  void soltar();

  Geometria geometria_;
  Escala escala_;
  QString modelo_;
  std::vector<CaraDeTecla> caras_;
  QPixmap fondo_;  // the whole keyboard, without marks; null while it must be drawn again
  int actual_ = 1, levantada_ = 0, destino_ = 0;
  int apretada_ = 0;  // the key that the mouse went down on
  QPointF desde_, raton_;
  bool arrastra_ = false;
  QPixmap fantasma_;
};

}  // namespace tarvo::devices
