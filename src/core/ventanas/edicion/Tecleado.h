// Numbers as a person types them. A number that would be stored as another one than was meant is
// refused in words: one that can be read in two ways, or with more decimals than there is room for.
// A text that isn't a number is left to its reader.
#pragma once

#include "core/valores/Resultado.h"
#include "core/ventanas/marco/Contexto.h"

namespace tarvo::ventanas {

// Money, in a currency.
Resultado<> importeClaro(const Contexto& c, const QString& texto, int moneda);
// A per cent, kept with all its decimals.
Resultado<> tantoClaro(const Contexto& c, const QString& texto);
// A per cent with two decimals, with either sign for them.
Resultado<> centesimasClaras(const Contexto& c, const QString& texto);
// A quantity of a kind, in grams or units.
Resultado<> cantidadClara(const Contexto& c, const QString& texto, int cada);

}  // namespace tarvo::ventanas
