// Sales drawn from a seed, believable enough for a shop that sells by weight.
#pragma once

#include <QDate>
#include <vector>

#include "simulador/Memoria.h"

namespace tarvo {
class Azar;
}

namespace tarvo::simulador {

struct Dia {
  QDate fecha;
  int ventas = 200;
  double devoluciones = 0.02;
  double descuentos = 0.08;
};

// One sale of an article of the machine, without its moment. REQUIRES a catalogue that isn't empty.
Venta ventaAlAzar(const Memoria& memoria, Azar& azar, double descuentos = 0);
// A day between nine and nine, in order of time. A return cancels a whole sale, of that day or an
// earlier one.
std::vector<Venta> ventasDelDia(const Memoria& memoria, const Dia& dia, quint64 semilla);

}  // namespace tarvo::simulador
