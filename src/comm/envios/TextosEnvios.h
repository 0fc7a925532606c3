// The texts of the sendings of articles, by number; see docs/textos.md.
#pragma once

namespace tarvo::envios {

enum TextoEnvios : int {
  // Why an article doesn't fit its record.
  kTxDemasiadasCifras = 2130,
  kTxDemasiadoGrande = 2131,
  kTxNegativo = 2132,
  kTxDemasiadoPequeno = 2133,
  kTxSoloCifras = 2134,
  kTxDemasiadoLargo = 2135,
  kTxLetraDesconocida = 2136,
  kTxCaracterDeControl = 2137,
  kTxVacio = 2127,
  kTxIlegible = 2128,
  kTxDeOtro = 2138,
  kTxNoBorraUnoSolo = 2139,
  kTxCampoPLU = 2140,   // to 2159: by field, within a sentence
  kTxTituloPLU = 2160,  // to 2179: by field, alone
};

}  // namespace tarvo::envios
