// The texts of the window kit, by number; see docs/textos.md.
#pragma once

namespace tarvo::ventanas {

enum TextoVentanas : int {
  kTxAceptar = 1000,
  kTxCancelar = 1001,
  kTxVerDetalle = 1002,
  kTxOcultarDetalle = 1003,
  kTxCopiar = 1004,
  kTxCerrarAviso = 1005,
  kTxBien = 1006,
  kTxDuda = 1007,
  kTxMal = 1008,
  kTxTitulo = 1009,
  kTxParar = 1010,
  kTxHechosDe = 1011,
  kTxHechos = 1012,
  kTxParado = 1013,
  kTxSinVentana = 1014,
  kTxFilas = 1020,
  kTxContando = 1021,
  kTxElegidas = 1022,
  kTxBuscar = 1023,
  kTxBuscarSiguiente = 1024,
  kTxNoHallado = 1025,
  kTxBuscando = 1026,
  kTxVacia = 1027,
  kTxCopiarFilas = 1028,
  kTxElegirTodo = 1029,
  kTxColumnas = 1030,
  kTxRefrescar = 1031,
  kTxExportar = 1032,
  kTxExportando = 1033,
  kTxExportado = 1034,
  kTxDemasiadasFilas = 1035,
  kTxTiposExportar = 1036,
  kTxSuma = 1037,
  kTxLista = 1038,
  kTxNingunaFila = 1039,
  kTxEscogerFecha = 1040,
};

}  // namespace tarvo::ventanas
