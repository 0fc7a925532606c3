// Cross-footing: a group's grand total against the sums by article, by department, by operator and
// by hour. Which sums are comparable for each kind of group: docs/libros.md.
#pragma once

#include <optional>
#include <vector>

#include "totals/libros/Sesion.h"
#include "totals/periodos/Periodos.h"

namespace tarvo::totals {

struct Comparado {
  TipoTotal clase = TipoTotal::GranTotal;
  qint64 granTotal = 0, suma = 0;          // stored money
  qint64 ventasGranTotal = 0, ventas = 0;  // counts, as the machine keeps them in each kind
  bool cuadra() const { return granTotal == suma; }
};

// The comparisons of a group within a period, or within the inbox with LINK 0. Empty without a
// grand total.
Resultado<std::vector<Comparado>> compararTotales(dao::Database& db, const Ajustes& ajustes,
                                                  qint64 link, int grupo);

// The groups of a period whose grand total differs from a comparable sum.
struct CuadreDePeriodo {
  bool hay = false;        // something could be compared
  bool granTotal = false;  // some group has one
  bool leido = false;      // a machine was read for it
  std::vector<int> malos = {};
};
Resultado<CuadreDePeriodo> cuadreDe(const Periodos& periodos, qint64 link);

// The articles, where amounts that cancel were sold in others than those read: all sums foot, but
// the articles have fewer sales than the grand total and another kind, which agree. Nothing where
// the counts show no such thing, or the group's machines count differently in each kind.
Resultado<std::optional<Comparado>> ventasSinArticulo(dao::Database& db, int grupo,
                                                      const std::vector<Comparado>& lista);

// Compares what the open session received from a group. Each difference becomes an Aviso with both
// numbers, and the group may not be zeroed until it is read again.
Resultado<> anotarCuadre(dao::Database& db, const Ajustes& ajustes, const Textos& textos, int grupo,
                         std::vector<Aviso>& avisos);

// The comparison for a period (the last memorised one when none is named), group by group, with the
// origin of each number.
struct InformeCuadre {
  QString texto;
  bool cuadra = true;
};
Resultado<InformeCuadre> informeCuadre(dao::Database& db, const Ajustes& ajustes,
                                       const Textos& textos, std::optional<qint64> link);

}  // namespace tarvo::totals
