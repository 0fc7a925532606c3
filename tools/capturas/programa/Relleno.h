// What a shop lacks between two nights, so that its windows have something to show.
#pragma once

#include "app/Aplicacion.h"
#include "core/ventanas/marco/Ventana.h"

namespace tarvo::capturas {

// An inbox with the sales of two days, still to be memorised; and today's period, when the shop has
// none at all.
Resultado<> llenarBandeja(app::Fondo& fondo, app::Aplicacion& aplicacion, Fecha hoy);
// A process that a person held, took a step further and gave up. REQUIRES an event loop.
Resultado<> dejarProceso(app::Aplicacion& aplicacion, const QString& carpeta);
// What the detail of the inbox, and the editor of timetables, open with.
Resultado<std::map<QString, ventanas::Argumentos>> argumentosLlenos(ventanas::Ventanas& ventanas,
                                                                    app::Aplicacion& aplicacion,
                                                                    const QString& carpeta);

}  // namespace tarvo::capturas
