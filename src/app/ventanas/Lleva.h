// The destination of an entry of the main window or of a line of the board: a door, or a window by
// name.
#pragma once

#include <variant>

#include "app/ventanas/Puertas.h"
#include "articles/ventanas/Puertas.h"
#include "automation/ventanas/Puertas.h"
#include "comm/ventanas/Puertas.h"
#include "core/ventanas/marco/Ventanas.h"
#include "totals/ventanas/Puertas.h"

namespace tarvo::app {

struct PorNombre {
  QString ventana;
  ventanas::Argumentos argumentos = {};
  bool operator==(const PorNombre&) const = default;
};

// The first one means no destination.
using Lleva =
    std::variant<std::monostate, PorNombre, PuertaMainTarvo, PuertaPortalCnf,
                 articles::PuertaBrowGrupos, articles::PuertaBrowOper, automation::PuertaAutomat,
                 automation::PuertaCronos, automation::PuertaDebidos, automation::PuertaEdiCron,
                 automation::PuertaVeoLog, comm::PuertaEstadoEnvio, comm::PuertaGestcomm,
                 totals::PuertaCerrSes, totals::PuertaDudasCero, totals::PuertaVerCols,
                 totals::PuertaVerTot>;

// Empty if there is no destination.
QString ventanaDe(const Lleva& lleva);
// Null under the conditions of Ventanas::abrir, or if there is no destination.
ventanas::Ventana* abrirLo(ventanas::Ventanas& todas, const Lleva& lleva, QWidget* dueno);

}  // namespace tarvo::app
