// Shared by the windows of the catalogue: texts of errors, and amounts as typed by the user.
#pragma once

#include "articles/Catalogo.h"
#include "core/ventanas/edicion/Opciones.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::articles {

// The width of a column that fits the largest price.
inline constexpr int kAnchoPrecio = 112;

// The code with leading zeros: "0000012".
QString verCodigo(qint64 codigo);

// The error with its text for the windows of the catalogue.
Error informe(const ventanas::Ventana& v, const Error& error);

// Parses a quantity, in grams or units. A text that isn't a number or is out of range is refused;
// an empty one is 0.
Resultado<qint64> leerCantidad(const ventanas::Ventana& v, const QString& texto, int cada);
// Parses a price in a currency, in stored units, within the limits of the catalogue; an empty one
// is refused.
Resultado<qint64> leerPrecio(const ventanas::Ventana& v, const QString& texto, int moneda);

// Enables an action that opens the window of a door of another room if the registry knows it;
// otherwise `siFalta` is its tool tip.
void permitir(QAction& accion, bool hay, const QString& siFalta);
template <ventanas::EsPuerta P>
void permitir(QAction& accion, const ventanas::Contexto& c, const QString& siFalta) {
  permitir(accion, c.ventanas.conoce<P>(), siFalta);
}

}  // namespace tarvo::articles
