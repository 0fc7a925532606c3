// The texts of the books, by number; see docs/textos.md.
#pragma once

namespace tarvo::totals {

enum TextoTotals : int {
  kTxNombreTotal = 6000,  // to 6021: by kind of total
  // The session.
  kTxDadoPorCero = 6030,
  kTxBajaronSinCuadrar = 6031,
  kTxIntervaloInvertido = 6032,
  kTxSinConstanciaDeCero = 6033,
  kTxMenosVentas = 6034,
  kTxGranTotalNoCuadra = 6035,
  kTxNoCuadraSinCero = 6036,
  kTxFaltaLectura = 6037,
  kTxSinMemorizar = 6038,
  kTxNoEsDeTotales = 6039,
  kTxMemoriceAntes = 6040,
  kTxCeroPosterior = 6041,
  kTxCeroAMedias = 6042,
  kTxCeroSinSaber = 6043,
  kTxVentasDeAntes = 6044,
  // Periods, export and import.
  kTxSinPeriodo = 6050,
  kTxFueraDeRango = 6051,
  kTxNoCabe = 6060,
  kTxNoCabeHora = 6061,
  kTxNadaExportado = 6062,
  kTxSinFichero = 6063,
  kTxExportarDentro = 6064,
  kTxNoEsExportacion = 6065,
  kTxLineaNoReconocible = 6070,
  kTxFinNoReconocible = 6071,
  kTxPeriodoSinCrear = 6072,
  kTxSinClaseDeTotal = 6073,
  kTxRecuperarOcupado = 6074,
  kTxPeriodoRepetido = 6075,
  // The report of the cross-footing.
  kTxCuadrePeriodo = 6080,
  kTxCuadreGrupo = 6081,
  kTxCuadra = 6082,
  kTxNoCuadra = 6083,
  kTxLeido = 6084,
  kTxLeidoDiferencia = 6085,
  kTxSumaDePeriodos = 6086,
  kTxSinLectura = 6087,
  kTxPeriodoNoHay = 6088,
  kTxNadaMemorizado = 6089,
};

}  // namespace tarvo::totals
