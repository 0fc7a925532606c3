// A form built row by row: caption, field, unit, and room for its fault. Controls have the domain's
// names; captions are texts, and their mnemonics move the focus to the fields. The tab order is the
// order of the rows. A Formulario is a handle: copies write into the same form.
#pragma once

#include <QBoxLayout>
#include <QGridLayout>
#include <functional>

#include "core/ventanas/edicion/Campo.h"
#include "core/ventanas/edicion/Opciones.h"

class QCheckBox;
class QPushButton;
class QTabWidget;
class QToolButton;

namespace tarvo::ventanas {

class Ficha;
class Parrilla;

class Formulario {
 public:
  Formulario(Ficha& ficha, QBoxLayout& sitio) : ficha_(&ficha), sitio_(&sitio) {}

  // --- rows; `rotulo` and `unidad` are texts, 0 for none
  Campo& fila(int rotulo, const QString& nombre, Modo modo, int unidad = 0);
  template <class T>
  Campo& fila(int rotulo, const QString& nombre, T& donde, const Opciones& opciones) {
    return lista(
        rotulo, nombre, [&donde] { return static_cast<qint64>(donde); },
        [&donde](qint64 n) { donde = static_cast<T>(n); }, opciones);
  }
  Campo& casilla(int rotulo, const QString& nombre, bool& donde);
  Campo& parrafo(int rotulo, const QString& nombre, QString& donde, int alto);
  // A control of the window's own, with its caption.
  void fila(int rotulo, QWidget* control, const QString& nombre);
  // A control in a row of its own, as wide as the form, below its caption; `crece`: it takes the
  // remaining room.
  template <class W>
  W* ancho(W* control, const QString& nombre, int rotulo = 0, int crece = 0) {
    poner(control, nombre, rotulo, crece);
    return control;
  }
  Parrilla* parrilla(int rotulo, const QString& nombre, int crece = 1);
  QLabel* nota(const QString& nombre, int texto = 0);
  QLabel* titulo(const QString& nombre);
  // Buttons or other small controls side by side.
  void enLinea(std::initializer_list<QWidget*> controles);
  QPushButton* boton(int texto, const QString& nombre, const std::function<void()>& hacer);
  QToolButton* icono(const QString& dibujo, int pista, const QString& nombre,
                     const std::function<void()>& hacer);
  void muelle();

  // --- groups, tabs and columns
  Formulario grupo(int titulo, const QString& nombre);
  QTabWidget* fichas(const QString& nombre);
  Formulario ficha(QTabWidget* fichas, int titulo, const QString& nombre);
  std::vector<Formulario> columnas(int cuantas);
  // The same, each with its share of the width; 0 for its size hint.
  std::vector<Formulario> columnas(std::initializer_list<int> partes);

 private:
  Campo& lista(int rotulo, const QString& nombre, std::function<qint64()> ver,
               std::function<void(qint64)> poner, const Opciones& opciones);
  QString t(int numero) const;
  QGridLayout& reja();  // the current grid layout, so that rows are aligned
  QLabel* rotular(QGridLayout& reja, int linea, int rotulo, QWidget* control);
  QLabel* faltaDe(QGridLayout& reja, int linea, const QString& nombre, bool debajo);
  void poner(QWidget* control, const QString& nombre, int rotulo, int crece);
  QWidget* donde() const;
  std::vector<Formulario> repartir(const std::vector<int>& partes);

  Ficha* ficha_;
  QBoxLayout* sitio_;
};

}  // namespace tarvo::ventanas
