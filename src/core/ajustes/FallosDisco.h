// How disk failures are reported. Internal to the room.
#pragma once

#include <QString>

#include "core/valores/Resultado.h"

namespace tarvo::ficheros {

// "No se puede escribir RUTA: el disco está lleno"; `numero` is errno.
std::unexpected<Error> falloDeDisco(const QString& verbo, const QString& ruta, int numero);
// A created or changed name reaches the disk with its folder.
void asegurarCarpetaDe(const QString& ruta);

}  // namespace tarvo::ficheros
