// Machines as JSON: the input of a configuration and the contents of a state file.
#pragma once

#include <QJsonArray>
#include <QJsonObject>

#include "core/valores/Resultado.h"
#include "simulador/Maquina.h"

namespace tarvo::simulador {

// Unknown fault names and values of the wrong kind are errors that name the word.
Resultado<Fallos> fallosDeJson(const QJsonObject& json);
Resultado<Articulo> articuloDeJson(const QJsonObject& json);
Resultado<Venta> ventaDeJson(const QJsonObject& json);
LineaLista lineaDeJson(const QJsonObject& json);
QJsonObject aJson(const Contadores& contadores);

// Everything that a restart needs and an oracle reads. `diasVendidos` counts the days drawn so far.
QJsonObject estadoAJson(const Maquina& maquina, int diasVendidos);
// Puts a machine back to the state of `json`; its counters are computed anew. Returns the days
// drawn so far.
Resultado<int> restaurarEstado(Maquina& maquina, const QJsonObject& json);

}  // namespace tarvo::simulador
