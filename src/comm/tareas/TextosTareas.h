// The texts of the tasks, by number; see docs/textos.md.
#pragma once

namespace tarvo::tareas {

enum TextoTareas : int {
  // How a sending of articles went.
  kTxArticulosEnviados = 2110,
  kTxPreciosEnviados = 2111,
  kTxSinArticulosQueEnviar = 2112,
  kTxArticuloRetenido = 2113,
  kTxArticuloRechazado = 2114,
  kTxTarifaDesconocida = 2116,
  kTxSinCajasALasQueEnviar = 2117,
  kTxRechazado = 2118,
  kTxErrorNumero = 2119,
  kTxNoLoTiene = 2120,
  kTxFichasLeidas = 2121,
  kTxArticulosBorrados = 2122,
  kTxSinAcabar = 2123,
  kTxRetenidosPorLoMismo = 2124,
  kTxRechazadosPorLoMismo = 2125,
  kTxGuardaBorrados = 2126,
  kTxReparo = 2129,
  kTxEnGrupo = 2240,
  kTxGrupoBorrado = 2241,
  kTxListaVacia = 2242,
  kTxTramaDeOtra = 2243,
  kTxSinCajasQueLeer = 2244,
  kTxSinCajasQueBorrar = 2245,
  kTxGuardaVentas = 2246,
  kTxListaDistinta = 2247,
  kTxListaSinFin = 2248,
  kTxTramaRepetida = 2249,
  kTxSinOperadorHora = 2250,
  kTxSinOperador = 2251,
  kTxRegistroCorto = 2252,
  kTxRegistroSinNumero = 2253,
  // What was being read, for people.
  kTxLugarCaja = 2260,
  kTxLugarArticulo = 2261,
  kTxLugarArticulos = 2262,
  kTxLugarGranTotal = 2263,
  kTxLugarOperador = 2264,
  kTxLugarOperadores = 2265,
  kTxLugarDepartamento = 2266,
  kTxLugarDepartamentos = 2267,
  kTxLugarHora = 2268,
  kTxLugarOperadorHora = 2269,
  kTxLugarOperadoresHoras = 2270,
  kTxLugarLinea = 2271,
  kTxPedido = 2272,
  kTxInventario = 2273,
  // Where a task is now at, for the grid.
  kTxPasoArticulo = 2280,
  kTxPasoOperador = 2281,
  kTxPasoDepartamento = 2282,
  kTxPasoHora = 2283,
  kTxPasoOperadorHora = 2284,
  kTxPasoCaja = 2285,
  kTxPasoLineas = 2286,
};

}  // namespace tarvo::tareas
