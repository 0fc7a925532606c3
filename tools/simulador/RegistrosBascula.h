// The records of scales' counters, each with the width of its model.
#pragma once

#include "simulador/Contadores.h"
#include "simulador/Memoria.h"

namespace tarvo::simulador {

QByteArray registroArticulo(int numero, const Cuenta& cuenta);
QByteArray registroGranTotal(const Cuenta& cuenta);       // kind 1
QByteArray registroGranTotalBirch(const Cuenta& cuenta);  // kind 4, the discounts in two parts
QByteArray registroOperador(int posicion, const Cuenta& cuenta);
QByteArray registroSeccionado(int numero, const Cuenta& cuenta);  // by department, by hour
QByteArray registroOperadorHora(int posicion, int hora, const Cuenta& cuenta);
// Up to three lines from the given one on; a line of zeros ends the list. One character precedes
// them.
QByteArray registroLineas(const std::vector<LineaLista>& lineas, std::size_t desde);

}  // namespace tarvo::simulador
