// The objects passed to every window: the program's and the kit's own. All of them outlive all
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
  const Nombres& nombres;  // the choices of combo boxes
  Ajustes& ajustes;
  const Textos& textos;
  Reloj& reloj;
  Ventanas& ventanas;
  Recuerdos& recuerdos;
  Tema& tema;
  QThreadPool& hilos;  // for queries in other threads; the painter waits for the library's own pool
};

}  // namespace tarvo::ventanas
