// Shared by the windows of offers and prices.
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <memory>

#include "articles/precios/Vigencia.h"
#include "core/ventanas/edicion/Opciones.h"
#include "core/ventanas/marco/Recorrido.h"
#include "core/ventanas/marco/Ventana.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::precios {

// Selects the entry with that datum, or else the first one.
void elegir(QComboBox& lista, const QVariant& dato);

// Such as "12,50", in the native currency.
QString precioEnTexto(const ventanas::Contexto& c, qint64 precio);
// Such as "33,33"; and the reverse, nothing if the text isn't a number.
QString conDosDecimales(double n);
std::optional<double> numeroDe(const QString& texto);
// Shows a fixed value in bold on the selection colour, any other one as usual.
void marcarFijo(QLineEdit& campo, bool fijo);
// A text of digits alone, of at most `cifras` (up to 9); nothing for any other.
std::optional<int> enteroDe(const QString& texto, int cifras);
// Limits the width of the field to that many digits.
void estrechar(QLineEdit& campo, int cifras);

// The control before `sitio` in the tab order, for setTabOrder; a widget without a focus policy
// can't be used there itself.
QWidget* antesDe(QWidget& sitio);

// The list whose articles a window works on, by the list's name. Until soltar(), it counts the
// window as an open child.
class DeLista {
 public:
  explicit DeLista(const ventanas::Contexto& c) : c_(c) {}
  void unir(const QString& nombre);
  void soltar();
  ventanas::Recorrido* operator->() const { return lista(); }  // REQUIRES a list
  explicit operator bool() const { return lista() != nullptr; }

 private:
  ventanas::Recorrido* lista() const;

  const ventanas::Contexto& c_;
  QString nombre_;
  bool unida_ = false;
};

// Why the end of an offer can't be taken, with an example.
Error malFin(const ventanas::Ventana& v, const FaltaFin& falta);
// The error for a code already in use, in the shop's words; other errors are unchanged.
Error informe(const ventanas::Contexto& c, const Error& error);

}  // namespace tarvo::precios
