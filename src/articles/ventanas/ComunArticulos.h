// What the windows of the catalogue share: the words of an error, amounts as a person types them.
#pragma once

#include "articles/Catalogo.h"
#include "core/ventanas/edicion/Opciones.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::articles {

// The width of a column in which the largest price stands whole.
inline constexpr int kAnchoPrecio = 112;

// "0000012".
QString verCodigo(qint64 codigo);

// The words of an error as the windows of the catalogue say it.
Error informe(const ventanas::Ventana& v, const Error& error);

// Shows that what a field holds is wrong, or isn't any more.
void marcar(QWidget& campo, bool falta);

// What was typed as a quantity, in grams or units. A text that is no number, or doesn't fit, is
// refused; an empty one is 0.
Resultado<qint64> leerCantidad(const ventanas::Ventana& v, const QString& texto, int cada);
// As a price of a currency, in stored units, by the limits of the catalogue: an empty one is
// refused.
Resultado<qint64> leerPrecio(const ventanas::Ventana& v, const QString& texto, int moneda);

// The entry of a menu or bar that opens a window of another room: only while the registry knows it.
void permitir(QAction& accion, const ventanas::Contexto& c, const QString& ventana,
              const QString& siFalta);

}  // namespace tarvo::articles
