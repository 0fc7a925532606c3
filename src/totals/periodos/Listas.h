// The lists of totals: their rows, and the names of their columns in the store.
#pragma once

#include "core/dao/Origen.h"
#include "totals/periodos/ConsultaFilas.h"

namespace tarvo::totals {

// The periods of a kind, all with 0; the latest first.
dao::Origen listaPeriodos(int tipo);
// The rows of one period and kind, by group and code.
dao::Origen listaFilas(const FiltroFilas& filtro);
// The rows of one code by period, the latest first; without a group in the filter the rows of a
// period are one, and its counters are sums (columnaSumada).
dao::Origen listaDeCodigo(const FiltroCodigo& filtro);

enum class CampoFila {
  Seccion,
  Grupo,
  Codigo,
  Hora,
  Operaciones,
  Peso,
  Importe,
  Descuento,
  Desde,  // the first day of its period
  Hasta,
};
QString columnaFila(CampoFila campo);
QString columnaSumada(CampoFila campo);
QString columnaCuantas();  // the rows that were made one

}  // namespace tarvo::totals
