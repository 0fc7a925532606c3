// What the windows of offers and prices share.
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <memory>

#include "core/ventanas/edicion/Opciones.h"
#include "core/ventanas/marco/Recorrido.h"
#include "core/ventanas/marco/Ventana.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::precios {

// The entry with that datum, else the first one.
void elegir(QComboBox& lista, const QVariant& dato);

// "12,50" in the native currency.
QString precioEnTexto(const ventanas::Contexto& c, qint64 precio);
// "33,33"; and back, nothing for what is no number.
QString conDosDecimales(double n);
std::optional<double> numeroDe(const QString& texto);
// Bold on the colour of what is chosen: a value that stays.
void marcarFijo(QLineEdit& campo, bool fijo);
// Shows the field as one with a fault, or no more.
void marcarFalta(QWidget& campo, bool falta);
// A field that takes digits only.
void soloCifras(QLineEdit& campo, int cuantas);
// Room for that many digits and no more.
void estrechar(QLineEdit& campo, int cifras);

// The control from which the tab key comes to a place of the form; a widget that takes no focus
// itself can't be put in the order of that key.
QWidget* antesDe(QWidget& sitio);

// The list over whose articles a window works, by its name. It is told that a child is open until
// soltar().
class DeLista {
 public:
  explicit DeLista(const ventanas::Contexto& c) : c_(c) {}
  void unir(const QString& nombre);
  void soltar();
  ventanas::Recorrido* operator->() const { return lista(); }  // REQUIRES one
  explicit operator bool() const { return lista() != nullptr; }

 private:
  ventanas::Recorrido* lista() const;

  const ventanas::Contexto& c_;
  QString nombre_;
  bool unida_ = false;
};

// A code that is taken, in the words that people know it by.
Error informe(const ventanas::Contexto& c, const Error& error);

}  // namespace tarvo::precios
