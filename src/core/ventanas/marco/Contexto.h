// What every window is handed: the program's objects and the kit's own. All of it outlives all
// windows.
#pragma once

#include "core/ajustes/Ajustes.h"
#include "core/nombres/Nombres.h"
#include "core/textos/Textos.h"
#include "core/tiempo/Reloj.h"
#include "core/ventanas/marco/Base.h"

class QThreadPool;

namespace tarvo::ventanas {

class Recuerdos;
class Tema;
class Ventanas;

struct Contexto {
  Base base;
  const Nombres& nombres;  // what combo boxes choose from
  Ajustes& ajustes;
  const Textos& textos;
  Reloj& reloj;
  Ventanas& ventanas;
  Recuerdos& recuerdos;
  Tema& tema;
  QThreadPool& hilos;  // for questions asked aside; the painter waits for the library's own
};

}  // namespace tarvo::ventanas
