// A field of a sheet: a control bound to a member of the record that is edited.
//
// A field takes every key. What can't become its value is refused when the sheet is read, with its
// limits in words beside it; the member keeps its value then. A field that nobody touched is not
// read: its value stays to the unit, however it was rounded for showing. Nor is a disabled one:
// nobody could mend it.
#pragma once

#include <QObject>
#include <functional>
#include <vector>

#include "core/valores/Resultado.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QWidget;

namespace tarvo::ventanas {

// How a value becomes text, and text a value.
struct Modo {
  // The same with other words for whatever is refused.
  Modo con(const QString& falta) &&;
  // The same where nothing that was typed counts as this text.
  Modo vacioComo(const QString& texto) &&;

  std::function<QString()> ver;
  // The text of its error is the fault, in words.
  std::function<Resultado<>(const QString&)> poner;
  QString limites = {};  // in words, for the tip; empty where there are none
  int letras = 0;        // that it is wide for; 0 as wide as there is room
  bool deFecha = false;  // it gets a calendar
};

class Campo : public QObject {
  Q_OBJECT
 public:
  // `falta`: the label for its fault, null for none.
  Campo(QWidget& control, QLabel* falta);

  QWidget& control() const { return control_; }
  const QString& nombre() const { return nombre_; }  // what the person knows it by
  void ponerNombre(const QString& nombre);
  void ponerPista(const QString& pista);  // its tip, in place of its limits

  // What the control shows is what it was shown with.
  void acordar() { visto_ = estado(); }
  // From the member to the control; its fault goes.
  void mostrar();
  // From the control to the member. The fault is marked, and its words are the error's.
  Resultado<> leer();
  // Since it was shown, or read the last time.
  bool tocado() const { return estado() != visto_; }
  // A fault beside it, in words; empty for none.
  void marcar(const QString& falta);
  bool conFalta() const;
  // Gives it the focus, on the tab where it is, with its text chosen.
  void enfocar();

 Q_SIGNALS:
  void cambiado();  // by the person
  void dejado();    // the focus went on from it, or Return was pressed

 protected:
  virtual QString estado() const = 0;  // of the control
  virtual void aControl() = 0;
  virtual Resultado<> aMiembro() = 0;
  void tocar();

 private:
  QWidget& control_;
  QLabel* falta_;
  QString nombre_, visto_;
};

// A full line of digits takes a further one at its end by pushing the first one out.
void empujarCifras(QLineEdit& linea);

// A line of text of any kind.
class CampoLinea final : public Campo {
  Q_OBJECT
 public:
  CampoLinea(QLineEdit& linea, QLabel* falta, Modo modo);

 private:
  QString estado() const override;
  void aControl() override;
  Resultado<> aMiembro() override;
  QLineEdit& linea_;
  Modo modo_;
};

// A control that can't hold a wrong value: a box, a list, a table of choices.
class CampoVivo final : public Campo {
  Q_OBJECT
 public:
  struct Enlace {
    std::function<QString()> estado;
    std::function<void()> aControl, aMiembro;
  };
  CampoVivo(QWidget& control, QLabel* falta, Enlace enlace);
  // The control's own signal of a change leads here; the member follows at once.
  void haCambiado();

 private:
  QString estado() const override { return enlace_.estado(); }
  void aControl() override { enlace_.aControl(); }
  Resultado<> aMiembro() override {
    enlace_.aMiembro();
    return {};
  }
  Enlace enlace_;
  bool poniendo_ = false;
};

}  // namespace tarvo::ventanas
