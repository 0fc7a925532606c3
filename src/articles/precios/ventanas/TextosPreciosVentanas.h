// Numbers of the texts of these windows.
#pragma once

namespace tarvo::precios {

enum TextoPreciosVentanas : int {
  kTxSinOfertas = 4340,
  kTxSinGrupos = 4341,
  kTxGrupoCol = 4410,
  kTxBorradaCol = 4411,
  kTxSeccionCol = 4412,
  kTxEnviadaCol = 4413,
  kTxCodigoCol = 4414,
  kTxNombreCol = 4415,
  kTxPrecioCol = 4416,
  kTxDesdeCol = 4417,
  kTxHastaCol = 4418,
  kTxNivel = 4420,  // to 4422
  kTxTarifaN = 4423,
  kTxPrecioMalo = 4424,
  kTxPreciosCopiados = 4425,
  kTxCambiaDesde = 4426,
  kTxCambiaHasta = 4427,
  kTxQuitaDesde = 4428,
  kTxQuitaHasta = 4429,
  kTxDeEsteGrupo = 4430,
  kTxDeTodosLosGrupos = 4431,
  kTxSePuedeDeshacer = 4432,
  kTxFechasCambiadas = 4433,
  kTxFechasDevueltas = 4434,
  kTxOfertasBorradas = 4435,
  kTxUnaSeleccionada = 4440,
  kTxVariasSeleccionadas = 4441,
  kTxVaAEliminarUna = 4442,
  kTxVaAEliminarVarias = 4443,
  kTxArticuloNoHallado = 4450,
  kTxPreciosNormales = 4451,
  kTxSinCodigo = 4452,
  kTxSinPrecio = 4453,
  kTxFechaMala = 4454,
  kTxAcabaAntes = 4455,
  kTxYaHayOferta = 4456,
  kTxReescribirla = 4457,
  kTxOfertaGuardada = 4458,
  kTxOfertaEnNinguno = 4459,
  kTxPrecioGuardado = 4465,
  kTxSinArticulo = 4466,
  kTxNoHayMas = 4467,
  kTxModo = 4507,         // to 4509
  kTxColumnas = 4510,     // to 4519
  kTxVistas = 4520,       // to 4522
  kTxPoliticas = 4523,    // to 4525
  kTxUnidades = 4526,     // to 4528
  kTxCamposFijos = 4550,  // to 4555
  kTxAnadir = 4556,
  kTxSi = 4557,
  kTxNo = 4558,
  kTxCancelar = 4559,
  kTxValorIncorrecto = 4560,
  kTxUltimo = 4561,
  kTxPrefijoNoNumerico = 4562,
  kTxPrefijoLargo = 4563,
  kTxPreciosIncorrectos = 4564,
  kTxTarifasIncorrectas = 4565,
  kTxSinArticulosQueCambiar = 4566,
  kTxSinSecciones = 4567,
  kTxPreciosDe = 4568,
  kTxQue = 4570,        // to 4572
  kTxRedondeos = 4573,  // to 4575
  kTxTodos = 4576,
  kTxTodas = 4577,
  kTxElegidos = 4578,
  kTxAntesCol = 4579,
  kTxDespuesCol = 4580,
  kTxCambianCol = 4581,
  kTxEstadoCol = 4582,
  kTxDesenlaces = 4583,  // to 4586
  kTxResumen = 4587,
  kTxVaACambiar = 4588,
  kTxCambiados = 4589,
  kTxNoCambiaron = 4590,
  kTxRepuestos = 4591,
  kTxNoRepuestos = 4592,
  kTxDeshacerLote = 4593,
  kTxOrdenMala = 4594,
  kTxNadaQueCambiar = 4595,
  kTxSePuedeDeshacerLote = 4597,
  kTxDuplicado = 4598,
  kTxNadaCambiado = 4599,
  kTxCambiando = 4787,
  kTxDeshaciendo = 4788,
  kTxAMedias = 4789,
};

}  // namespace tarvo::precios
