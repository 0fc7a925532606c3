// Data that a shop lacks between two nights, so that its windows have something to show.
#pragma once

#include "app/Aplicacion.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::capturas {

// An inbox with the sales of two days, still to be memorised; and today's period, if the shop has
// none at all.
Resultado<> llenarBandeja(app::Fondo& fondo, app::Aplicacion& aplicacion, Fecha hoy);
// A process that a person held, advanced by a step and aborted. REQUIRES an event loop.
Resultado<> dejarProceso(app::Aplicacion& aplicacion, const QString& carpeta);
// Doors with something to show for the inbox detail, the timetable editor and the window of tables.
Resultado<> ponerMuestrasLlenas(ventanas::Ventanas& ventanas, app::Aplicacion& aplicacion,
                                const QString& carpeta);

}  // namespace tarvo::capturas
