// The destination of an entry of the main window, of the settings or of a line of the board: a
// door. A window that isn't written yet has only a name, and so has one that the command line
// names.
#pragma once

#include <variant>

#include "app/ventanas/Puertas.h"
#include "articles/importar/ventanas/Puertas.h"
#include "articles/precios/ventanas/Puertas.h"
#include "articles/ventanas/Puertas.h"
#include "automation/ventanas/Puertas.h"
#include "comm/exploracion/ventanas/Puertas.h"
#include "comm/ventanas/Puertas.h"
#include "core/ventanas/marco/Ventanas.h"
#include "labels/ventanas/Puertas.h"
#include "totals/ventanas/Puertas.h"

namespace tarvo::app {

struct PorNombre {
  QString ventana;
  bool operator==(const PorNombre&) const = default;
};

// The first one means no destination.
using Lleva =
    std::variant<std::monostate, PorNombre, PuertaMainTarvo, PuertaPortalCnf,
                 articles::PuertaBrowGrupos, articles::PuertaBrowOper, articles::PuertaBrowPLUs,
                 automation::PuertaAutomat, automation::PuertaCronos, automation::PuertaDebidos,
                 automation::PuertaEdiCron, automation::PuertaVeoLog, comm::PuertaCfgComm,
                 comm::PuertaEstadoEnvio, comm::PuertaGestcomm, exploracion::PuertaWizInicio,
                 importar::PuertaMainTvc, labels::PuertaEdiEtqu, precios::PuertaBrowOfer,
                 precios::PuertaCambioLote, totals::PuertaCerrSes, totals::PuertaDudasCero,
                 totals::PuertaVerCols, totals::PuertaVerTot>;

// Empty if there is no destination.
QString ventanaDe(const Lleva& lleva);
// Null under the conditions of Ventanas::abrir, or if there is no destination.
ventanas::Ventana* abrirLo(ventanas::Ventanas& todas, const Lleva& lleva, QWidget* dueno);

}  // namespace tarvo::app
