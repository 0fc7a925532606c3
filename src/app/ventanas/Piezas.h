// The pieces of the board: lines and cards, each one a button that can be reached by keyboard.
#pragma once

#include <QAbstractButton>

#include "app/ventanas/VistaManana.h"

class QLabel;

namespace tarvo::app {

// A row of bars, the last one in the accent colour.
class Barras final : public QWidget {
 public:
  explicit Barras(QWidget* padre);
  void poner(std::vector<double> alturas);
  QSize sizeHint() const override;

 private:
  void paintEvent(QPaintEvent* evento) override;
  std::vector<double> alturas_;
};

// The base of lines and cards: a background that shows hovering and pressing, Enter as a click, and
// an accessible name made of all its texts.
class Pieza : public QAbstractButton {
  Q_OBJECT
 public:
  explicit Pieza(QWidget* padre);
  const Renglon& renglon() const { return renglon_; }
  void poner(const Renglon& renglon);
  // Sets a tool tip that replaces the click if the window doesn't exist.
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

// The night in one sentence, on the background of its state.
class Titular final : public Pieza {
 public:
  explicit Titular(QWidget* padre);

 private:
  void mostrar() override;
  QColor fondo() const override;
  QLabel *imagen_, *titulo_, *texto_, *valor_;
};

// A figure and its meaning.
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
  // Sets the column widths, which align all lines of a board.
  void ponerAnchos(int palabra, int titulo, int valor);
  QSize anchosQuePide() const;  // of word and title
  int valorQuePide() const;

 private:
  void mostrar() override;
  QLabel *imagen_, *palabra_, *titulo_, *texto_, *valor_;
};

}  // namespace tarvo::app
