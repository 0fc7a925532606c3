// A keyboard in a text file, in its clipboard form.
#pragma once

#include "core/textos/Textos.h"
#include "devices/Teclado.h"

namespace tarvo::devices {

// Written whole.
Resultado<> guardarTeclado(const QString& ruta, const Teclado& teclado);
// The text, for Teclado::pegar(). Formato, in words, when it is no keyboard, or when a line of it
// isn't of the form or a key has none: a damaged file would empty keys.
Resultado<QString> leerTeclado(const QString& ruta, const Textos& textos);

}  // namespace tarvo::devices
