// The texts of the warehouses, by number; see docs/textos.md.
#pragma once

namespace tarvo::stock {

enum TextoStock : int {
  // Names that warehouses are made with.
  kTxAlmacenUnico = 7001,
  kTxAlmacenNumero = 7002,
  kTxAlmacenDeGrupo = 7003,
  kTxGruposSinStock = 7004,
};

}  // namespace tarvo::stock
