// A test in words that somebody who sells fruit understands.
#pragma once

#include "comm/conexion/Prueba.h"

namespace tarvo::conexion {

// "Teléfono 912345678", "1 · Rowan", "Caja 2, dirección 5".
QString nombreDe(const Contestacion& c, const GrupoProbado& p, const Textos& textos);
QString palabraDe(Que que, const Textos& textos);
// What to look at, for what is wrong and how the group is reached; empty if nothing is.
QString queMirar(const Contestacion& c, const GrupoProbado& p, const Textos& textos);
// How it ended, in a sentence.
QString resumen(const Prueba& prueba, const Textos& textos);
// Everything that was to be tried answered as it should.
bool todoBien(const Prueba& prueba);

}  // namespace tarvo::conexion
