// Payloads of the cash registers, kind of group 3: requests, and lists with one record in each
// frame.
#pragma once

#include "comm/maquinas/Campos.h"

namespace tarvo::maquinas::caja {

inline constexpr int kArticulos = 2057, kTotales = 2060;
inline constexpr int kPasosCero = 3;

Peticion puestaACero(int paso);  // 1 to kPasosCero
Peticion articulos();
Peticion totales();  // grand total and departments alike

// Is this record the end of the list of that code? No other code ever ends a list.
bool finDeLista(int codigo, QByteArrayView registro);
// The key of a record within its list: its bar code, or its type and number.
QByteArray clave(int codigo, const QByteArray& registro);

// A sale by bar code: `numero` is the code as a number. Nothing if the record has no sale.
Leido<std::optional<Total>> leerArticulo(QByteArrayView registro, Rigor rigor = Rigor::Estricto);
// The part of a totals record that counts for the grand total; nothing for any other record of the
// list.
Leido<std::optional<Total>> leerGranTotal(QByteArrayView registro, Rigor rigor = Rigor::Estricto);
Leido<std::optional<Total>> leerDepartamento(QByteArrayView registro,
                                             Rigor rigor = Rigor::Estricto);

}  // namespace tarvo::maquinas::caja
