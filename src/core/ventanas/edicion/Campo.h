// A field of a sheet: a control bound to a member of the record being edited.
//
// A field accepts every key. A text that can't become its value is refused when the sheet is read,
// with its limits in words beside it; the member then keeps its value. An untouched field isn't
// read: its value stays exact, however it was rounded for display. Nor is a disabled one: the user
// couldn't correct it.
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

// How a value becomes text, and a text a value.
struct Modo {
  // The same mode, with another message for any refused text.
  Modo con(const QString& falta) &&;
  // The same mode, where an empty field counts as this text.
  Modo vacioComo(const QString& texto) &&;

  std::function<QString()> ver;
  // The text of its error is the fault, in words.
  std::function<Resultado<>(const QString&)> poner;
  QString limites = {};  // in words, for the tool tip; empty if there are none
  int letras = 0;        // width in letters; 0 for all the room there is
  bool deFecha = false;  // has a calendar
  // Its fault has a line of its own: where a short field has little room beside it.
  bool faltaDebajo = false;
};

// Marks a control as wrong, or as right again. A field of a sheet does it by itself.
void marcarFalta(QWidget& control, bool falta);

class Campo : public QObject {
  Q_OBJECT
 public:
  // `falta`: the label for its fault, or null.
  Campo(QWidget& control, QLabel* falta);

  QWidget& control() const { return control_; }
  const QString& nombre() const { return nombre_; }  // its name for the user
  void ponerNombre(const QString& nombre);
  void ponerPista(const QString& pista);  // a tool tip instead of its limits

  // Takes the current contents of the control as the contents last shown.
  void acordar() { visto_ = estado(); }
  // Copies the member to the control and clears its fault.
  void mostrar();
  // Copies the control to the member. A fault is marked, and its words are the error's.
  Resultado<> leer();
  // Whether it has changed since it was last shown or read.
  bool tocado() const { return estado() != visto_; }
  // Shows a fault beside it, in words; an empty one clears it.
  void marcar(const QString& falta);
  bool conFalta() const;
  // Moves the focus to it, on its tab, with its text selected.
  void enfocar();

 Q_SIGNALS:
  void cambiado();  // by the user
  void dejado();    // the focus left it, or Return was pressed

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

// A digit typed at the end of a full line pushes its first digit out.
void empujarCifras(QLineEdit& linea);

// A text of any kind in a line edit.
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

// A control that can't hold an invalid value: a check box, a list, a table of choices.
class CampoVivo final : public Campo {
  Q_OBJECT
 public:
  struct Enlace {
    std::function<QString()> estado;
    std::function<void()> aControl, aMiembro;
  };
  CampoVivo(QWidget& control, QLabel* falta, Enlace enlace);
  // Slot for the control's own change signal; the member is updated at once.
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
