// Article records as the back-office sends them, one reader for each family of machine.
#pragma once

#include <optional>

#include "simulador/Venta.h"

namespace tarvo::simulador {

std::optional<Articulo> leerFichaBalanza(const QByteArray& datos);
std::optional<Articulo> leerFichaEbony(const QByteArray& datos);
// Registers identify articles by bar code. A code with our own prefix ends in the article's number;
// any other is looked up in `conocidos`, and if not found the article gets the next number from
// 9000000 on.
std::optional<Articulo> leerFichaRegistradora(const QByteArray& datos, const Catalogo& conocidos);
// The record of a scale's article: as it was sent, or composed from its known data.
QByteArray fichaBalanza(const Articulo& articulo);

}  // namespace tarvo::simulador
