// The counters of a machine: sums over sales, in three sets that can be cleared separately.
#pragma once

#include <map>
#include <span>
#include <utility>

#include "simulador/Venta.h"

namespace tarvo::simulador {

struct Cuenta {
  qint64 imp = 0, pes = 0, con = 0, sco = 0;
  void sumar(const Venta& venta);
  bool vacia() const { return imp == 0 && pes == 0 && con == 0 && sco == 0; }
  bool operator==(const Cuenta&) const = default;
};

// Sets of counters, to be joined with |.
enum Conjunto : int {
  kArticulos = 1,  // by article
  kTotales = 2,    // grand total, its two parts, and departments
  kPersonal = 4,   // operators, hours, operators by hour
  kTodos = 7,
  kSoloGranTotal = 8,  // kTotales is these two together
  kSoloDepartamentos = 16,
};

struct Contadores {
  std::map<int, Cuenta> articulos, departamentos, operadores, horas;
  std::map<std::pair<int, int>, Cuenta> operHora;  // (operator position, hour)
  Cuenta granTotal;
  Cuenta ventas, devoluciones;  // the grand total split by the sign of the amount

  void sumar(const Venta& venta);
  void borrar(int conjuntos);
  bool vacios() const { return *this == Contadores{}; }
  bool operator==(const Contadores&) const = default;

  static Contadores de(std::span<const Venta> libro);
};

}  // namespace tarvo::simulador
