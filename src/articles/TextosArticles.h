// Numbers of the texts of this room.
#pragma once

namespace tarvo::articles {

enum TextoArticles : int {
  kTxIntocables = 4000,
  kTxArticuloBorrado = 4001,
  kTxLoteOlvidado = 4600,
};

}  // namespace tarvo::articles
