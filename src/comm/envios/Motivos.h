// Why an article can't go to a machine, in words.
#pragma once

#include "comm/maquinas/Articulo.h"
#include "core/textos/Textos.h"

namespace tarvo::envios {

// The name of a field, used on its own.
QString nombreDeCampo(maquinas::CampoPLU campo, const Textos& textos);
// A sentence without its full stop: "el precio base tiene más de 6 cifras".
QString motivoDe(const maquinas::NoCabe& noCabe, const Textos& textos);

}  // namespace tarvo::envios
