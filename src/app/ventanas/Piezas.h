// The pieces of the board: lines and cards, each a button that the keyboard reaches.
#pragma once

#include <QAbstractButton>

#include "app/ventanas/VistaManana.h"

class QLabel;

namespace tarvo::app {

// Some bars, the last one in the accent colour.
class Barras final : public QWidget {
 public:
  explicit Barras(QWidget* padre);
  void poner(std::vector<double> alturas);
  QSize sizeHint() const override;

 private:
  void paintEvent(QPaintEvent* evento) override;
  std::vector<double> alturas_;
};

// What a line and a card have in common: a ground that shows hover and press, Enter as a click,
// and a name for assistive tools made of all that it says.
class Pieza : public QAbstractButton {
  Q_OBJECT
 public:
  explicit Pieza(QWidget* padre);
  const Renglon& renglon() const { return renglon_; }
  void poner(const Renglon& renglon);
  // Tip in place of the click where the window isn't there.
  void ponerSinVentana(const QString& tip);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  int heightForWidth(int ancho) const override;
  bool hasHeightForWidth() const override { return true; }

 protected:
  virtual void mostrar() = 0;
  void ponerEstado(QLabel& imagen, int lado) const;
  bool event(QEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;
  void paintEvent(QPaintEvent* evento) override;
  virtual QColor fondo() const;
  virtual bool conBorde() const { return false; }

  Renglon renglon_;
};

// The night in one sentence, on the ground of its state.
class Titular final : public Pieza {
 public:
  explicit Titular(QWidget* padre);

 private:
  void mostrar() override;
  QColor fondo() const override;
  QLabel *imagen_, *titulo_, *texto_, *valor_;
};

// A figure with what it means.
class Tarjeta final : public Pieza {
 public:
  explicit Tarjeta(QWidget* padre);

 private:
  void mostrar() override;
  bool conBorde() const override { return true; }
  QLabel *imagen_, *titulo_, *valor_, *texto_;
  Barras* barras_;
};

// State, name, reason, amount.
class LineaGrupo final : public Pieza {
 public:
  explicit LineaGrupo(QWidget* padre);
  // So that all lines of a board stand in columns.
  void ponerAnchos(int palabra, int titulo, int valor);
  QSize anchosQuePide() const;  // of word and title
  int valorQuePide() const;

 private:
  void mostrar() override;
  QLabel *imagen_, *palabra_, *titulo_, *texto_, *valor_;
};

}  // namespace tarvo::app
