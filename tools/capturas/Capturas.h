// Opens registered windows in each face, size and font scale, and saves them as pictures.
#pragma once

#include <QStringList>

#include "core/ventanas/marco/Escritorio.h"

namespace tarvo::capturas {

struct Encargo {
  QString carpeta;        // where pictures go, created if missing; empty: they are not kept
  QString marca;          // "llena" or "vacia", part of the file's name
  QStringList solo = {};  // these windows; empty for all
};

// "Ventana_llena_claro_1366x768_100.png" and so on. Returns a line for each truncated part, with
// the picture's name in front.
QStringList capturar(ventanas::Escritorio& escritorio, const Encargo& encargo);

}  // namespace tarvo::capturas
